#pragma once

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QMainWindow>
#include <QProgressBar>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>
#include <chrono>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

#include "desk/report_line.h"
#include "platform/forwarding_file_system.h"
#include "support/fake_services.h"
#include "support/purge_test_base.h"
#include "tools/purge/ui/FilterForm.h"

namespace qublet {

// Every folder takes this long to be read.
class SlowListings : public ForwardingFileSystem {
 public:
  explicit SlowListings(FileSystem& files) : ForwardingFileSystem(files) {}

  std::vector<FolderEntry> ReadFolder(const std::string& folder) const override {
    std::this_thread::sleep_for(delay);
    return ForwardingFileSystem::ReadFolder(folder);
  }

  std::chrono::milliseconds delay{0};
};

// The purge window over a list on the drives c:, d: and z:. Controls are found by their names.
class FilterFormTestBase : public testing::Test {
 protected:
  FilterFormTestBase() {
    engine_.view.Show(window_);
    feedback_.ShowIn(main_, [this](const QString& text) {
      activities_.push_back(text.toStdString());
      if (on_activity_) on_activity_(activities_.back());
    });
  }
  ~FilterFormTestBase() override {
    form_.reset();
    feedback_.ShowNowhere();
  }

  void Open() {
    if (!form_) form_ = std::make_unique<FilterForm>(engine_, feedback_, nullptr);
    form_->show();
    form_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form_.get()));
    ASSERT_TRUE(QTest::qWaitFor([this] { return !Report().empty(); }));
  }
  template <typename Control>
  Control& Find(const char* name) {
    auto* control = form_->findChild<Control*>(QString::fromUtf8(name));
    if (control == nullptr) throw std::runtime_error(std::string("no control ") + name);
    return *control;
  }
  QTabWidget& Pages() { return Find<QTabWidget>("FilterTab"); }
  QTreeWidget& Folders() { return Find<QTreeWidget>("FoundPaths"); }
  // At its left, where a check box is.
  void Click(const char* name) {
    auto& button = Find<QAbstractButton>(name);
    QTest::mouseClick(&button, Qt::LeftButton, Qt::NoModifier, QPoint(8, button.height() / 2));
  }
  // A key of the keyboard, which goes to the control that has the focus.
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(form_->windowHandle(), key, modifiers);
  }
  // Presses the key of "Process", whose button goes down for a moment, and waits for what comes of it.
  void Process() {
    const std::string before = Report();
    Press(Qt::Key_P, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return Report() != before; }));
  }
  // Chooses an entry of a list by its keys.
  void Choose(const char* list, int row) {
    auto& box = Find<QComboBox>(list);
    QTest::keyClick(&box, Qt::Key_Home);
    for (int i = 0; i < row; ++i) QTest::keyClick(&box, Qt::Key_Down);
    ASSERT_EQ(box.currentIndex(), row);
  }
  std::string Report() { return Find<ReportLine>("lbReport").Reported().toStdString(); }
  std::string Missing() { return Find<ReportLine>("MissingPath").Reported().toStdString(); }
  bool Enabled(const char* name) { return Find<QWidget>(name).isEnabled(); }
  // "x" for a control that can be used.
  std::string Usable(std::initializer_list<const char*> names) {
    std::string text;
    for (const char* name : names) text += Enabled(name) ? 'x' : '-';
    return text;
  }

  void Touch(const Collection& names) const {
    for (const std::string& name : names) drives_.Write(name, "abc");
  }
  void TouchOnD(const Collection& names) const {
    for (const std::string& name : names) TemporaryDrives::WriteAt(drives_.D() / name, "abc");
  }
  void AddPaths(const Collection& paths) {
    for (const std::string& path : paths) engine_.items.AddFile(path, 0, 0);
    engine_.document.PlaylistChanged = false;
  }
  RowStore& Rows() { return engine_.document.ListView1; }
  std::string Paths() {
    std::string text;
    for (int i = 1; i <= Rows().Count(); ++i) text += (i > 1 ? "|" : "") + Rows().At(i).FullPath();
    return text;
  }

  ClosedDrives drives_;
  std::unique_ptr<FileSystem> real_files_ = OpenFileSystem();
  SlowListings files_{*real_files_};
  QMainWindow main_;
  WindowFeedback feedback_;
  RecordingView window_;
  FakeServices fakes_;
  Engine engine_{fakes_.Over(files_, feedback_), {"QUBLET2021", "c:\\program", ""}, ","};
  std::vector<std::string> activities_;  // what the status bar has shown
  std::function<void(const std::string& text)> on_activity_;
  std::unique_ptr<FilterForm> form_;
};

}  // namespace qublet

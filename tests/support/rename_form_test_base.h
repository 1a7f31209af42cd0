#pragma once

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <QTreeWidget>
#include <memory>
#include <string>

#include "support/rename_test_base.h"
#include "tools/rename/ui/RenameForm.h"

namespace qublet {

// The rename window over songs of the drive c:. Controls are found by their names.
class RenameFormTestBase : public RenameTestBase {
 protected:
  void Open() {
    if (!form_) form_ = std::make_unique<RenameForm>(engine_, nullptr);
    form_->show();
    form_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form_.get()));
  }
  template <typename Control>
  Control& Find(const char* name) {
    auto* control = form_->findChild<Control*>(QString::fromUtf8(name));
    if (control == nullptr) throw std::runtime_error(std::string("no control ") + name);
    return *control;
  }
  QTabWidget& Pages() { return Find<QTabWidget>("RenameTab"); }
  QListWidget& Rules() { return Find<QListWidget>("RuleList"); }
  void Turn(const char* title) {
    for (int page = 0; page < Pages().count(); ++page) {
      if (Pages().tabText(page) == QString::fromUtf8(title)) Pages().setCurrentIndex(page);
    }
    ASSERT_EQ(Pages().tabText(Pages().currentIndex()).toStdString(), title);
  }
  // At its left, where a check box is.
  void Click(const char* name) {
    auto& button = Find<QAbstractButton>(name);
    QTest::mouseClick(&button, Qt::LeftButton, Qt::NoModifier, QPoint(8, button.height() / 2));
  }
  void Run() {
    fakes_.dialogs.answers.push_back(MessageAnswer::kYes);
    Click("CmdProcess");
  }
  std::string Report() { return Find<ReportLine>("lbReport").Reported().toStdString(); }
  bool Enabled(const char* name) { return Find<QWidget>(name).isEnabled(); }

  // The preview, once it is worked out: "name > name: result" a row.
  std::string Preview() {
    EXPECT_TRUE(QTest::qWaitFor([this] { return Find<QLabel>("Counts").text().contains(u" renamed, "); }));
    const QAbstractItemModel& model = *Find<QTreeView>("PreviewTable").model();
    std::string text;
    for (int row = 0; row < model.rowCount(); ++row) {
      const auto cell = [&](int column) { return model.index(row, column).data().toString().toStdString(); };
      text += cell(0) + " " + cell(1) + " > " + cell(2) + ": " + cell(3) + "\n";
    }
    return text;
  }

  std::unique_ptr<RenameForm> form_;
};

}  // namespace qublet

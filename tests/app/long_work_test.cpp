#include <gtest/gtest.h>

#include <QDialog>
#include <QEvent>
#include <QProgressBar>
#include <set>

#include "support/main_window.h"
#include "support/slow_file_system.h"

namespace qublet {
namespace {

// Watches the application while a batch runs: what was painted, where the progress stood, and on the way presses keys
// and the close box.
class Watcher : public QObject {
 public:
  explicit Watcher(MainWindow& window) : window_(window) { qApp->installEventFilter(this); }
  ~Watcher() override { qApp->removeEventFilter(this); }

  std::set<int> progress;
  int list_paints = 0;
  QString caption;
  bool progress_is_modal = false;

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint && watched == window_.List().viewport()) ++list_paints;
    auto* status = window_.main->findChild<QDialog*>("Status");
    if (status != nullptr && status->isVisible() && !busy_) {
      busy_ = true;
      caption = status->windowTitle();
      progress_is_modal = status->isModal();
      progress.insert(status->findChild<QProgressBar*>("ProgressBar1")->value());
      window_.List().viewport()->update();
      if (progress.size() == 2) PressKeys();
      busy_ = false;
    }
    return false;
  }

 private:
  void PressKeys() {
    QCoreApplication::postEvent(&window_.List(), new QKeyEvent(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier));
    QCoreApplication::postEvent(window_.main.get(), new QCloseEvent);
  }

  MainWindow& window_;
  bool busy_ = false;
};

TEST(LongWork, KeepsTheWindowPaintedItsProgressHonestAndItsInputLocked) {
  MainWindow window([] { return std::make_unique<SlowFileSystem>(std::chrono::milliseconds(5)); });
  window.Start();
  for (int i = 0; i < 200; ++i) window.drives.Write("m/" + std::to_string(1000 + i) + ".mp3", kNoise);
  Watcher watcher(window);
  window.Add("c:\\m");
  EXPECT_EQ(window.Rows().Count(), 200) << "a key pressed meanwhile removes nothing";
  EXPECT_TRUE(window.main->isVisible());
  EXPECT_TRUE(window.dialogs.messages.empty()) << "the close box asked";
  EXPECT_EQ(watcher.caption, QStringLiteral("Get File Info..."));
  EXPECT_FALSE(watcher.progress_is_modal);
  ASSERT_GE(watcher.progress.size(), 5U);
  EXPECT_GE(*watcher.progress.rbegin(), 100);
  EXPECT_LE(*watcher.progress.rbegin(), 200);
  EXPECT_GE(watcher.list_paints, 5);
  EXPECT_FALSE(window.main->findChild<QDialog*>("Status")->isVisible());
}

TEST(LongWork, ShowsEachFolderOfAWalkInTheLastPanelAndClearsIt) {
  MainWindow window;
  window.Start();
  window.drives.Write("m/one/a.mp3", kNoise);
  window.Add("c:\\m");
  EXPECT_EQ(window.Panel(4), "");
}

TEST(LongWork, LoadsTenThousandFilesInOrder) {
  MainWindow window;
  window.Start();
  window.drives.Write("a.mp3", kNoise);
  for (int folder = 0; folder < 100; ++folder) {
    const auto place = window.drives.C() / "m" / std::to_string(100 + folder);
    std::filesystem::create_directories(place);
    for (int i = 0; i < 100; ++i) {
      std::filesystem::create_hard_link(window.drives.C() / "a.mp3", place / (std::to_string(100 + i) + ".mp3"));
    }
  }
  window.Add("c:\\m");
  ASSERT_EQ(window.Rows().Count(), 10000);
  EXPECT_EQ(window.Rows().At(1).cells[kOriginalOrder], "1");
  EXPECT_EQ(window.Rows().At(10000).cells[kOriginalOrder], "10000");
  EXPECT_EQ(window.Panel(1), "10000 Items");
}

}  // namespace
}  // namespace qublet

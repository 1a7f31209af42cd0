#include <gtest/gtest.h>
#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#include <QDialog>
#include <QEvent>
#include <QProgressBar>
#include <QSocketNotifier>
#include <QTimer>
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
    QCoreApplication::postEvent(window_.main, new QCloseEvent);
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

// Runs something each time a window is painted in the middle of a batch.
class AtEachPaint : public QObject {
 public:
  AtEachPaint(MainWindow& window, std::function<void()> step) : window_(window), step_(std::move(step)) {
    qApp->installEventFilter(this);
  }
  ~AtEachPaint() override { qApp->removeEventFilter(this); }

  int steps = 0;

  bool eventFilter(QObject*, QEvent* event) override {
    auto* status = window_.main->findChild<QDialog*>("Status");
    if (event->type() == QEvent::Paint && status != nullptr && status->isVisible()) {
      ++steps;
      step_();
    }
    return false;
  }

 private:
  MainWindow& window_;
  std::function<void()> step_;
};

class SlowBatch : public testing::Test {
 protected:
  SlowBatch() {
    window.Start();
    for (int i = 0; i < 150; ++i) window.drives.Write("m/" + std::to_string(1000 + i) + ".mp3", kNoise);
  }

  MainWindow window{[] { return std::make_unique<SlowFileSystem>(std::chrono::milliseconds(5)); }};
};

TEST_F(SlowBatch, LetsNoTimerFireBeforeItsEnd) {
  int ticks = 0;
  int shots = 0;
  QTimer repeating;
  QObject::connect(&repeating, &QTimer::timeout, [&] { ++ticks; });
  repeating.start(1);
  QTimer::singleShot(20, qApp, [&] { ++shots; });
  AtEachPaint watch(window, [] {});
  window.Add("c:\\m");
  EXPECT_EQ(ticks, 0);
  EXPECT_EQ(shots, 0);
  EXPECT_GE(watch.steps, 5) << "the window was painted meanwhile";
  EXPECT_TRUE(QTest::qWaitFor([&] { return shots == 1 && ticks > 0; })) << "they wait, they aren't lost";
}

#ifndef _WIN32
TEST_F(SlowBatch, LeavesSocketsUnreadUntilItsEnd) {
  const auto place = window.drives.Root() / "pipe";
  ASSERT_EQ(mkfifo(place.c_str(), 0600), 0);
  const int end = open(place.c_str(), O_RDWR | O_NONBLOCK);
  ASSERT_GE(end, 0);
  ASSERT_EQ(write(end, "x", 1), 1);
  int reads = 0;
  QSocketNotifier notifier(end, QSocketNotifier::Read);
  QObject::connect(&notifier, &QSocketNotifier::activated, [&] {
    ++reads;
    notifier.setEnabled(false);
  });
  window.Add("c:\\m");
  EXPECT_EQ(reads, 0);
  EXPECT_TRUE(QTest::qWaitFor([&] { return reads == 1; }));
  close(end);
}
#endif

TEST_F(SlowBatch, RunsNoCommandHoweverItIsReached) {
  window.Run("MEditSelNone");
  AtEachPaint watch(window, [&] {
    // As a screen reader's "press" or a desktop's global menu does.
    window.Run("MFileNew");
    window.Run("MEditSelInv");
    window.Action("Toolbar1 New")->trigger();
    window.Action("Toolbar1 Remove Items")->trigger();
  });
  window.Add("c:\\m");
  EXPECT_GE(watch.steps, 5);
  EXPECT_EQ(window.Rows().Count(), 150);
  EXPECT_EQ(window.Panel(1), "150 Items");
  window.document->PlaylistChanged = false;
  window.Run("MFileNew");
  EXPECT_EQ(window.Rows().Count(), 0) << "afterwards they run again";
}

TEST_F(SlowBatch, MovesNoRowsUnderARightButtonThatIsHeld) {
  window.drives.Write("two/a.mp3", kNoise);
  window.drives.Write("two/b.mp3", kNoise);
  window.Add("c:\\two");
  QWidget* view = window.List().viewport();
  const auto on = [&](int row) {
    return window.List().visualRect(window.List().model()->index(row - 1, 0)).center();
  };
  const auto move = [&](int row) {
    QCoreApplication::postEvent(view, new QMouseEvent(QEvent::MouseMove, on(row), view->mapToGlobal(on(row)),
                                                      Qt::NoButton, Qt::RightButton, Qt::NoModifier));
  };
  window.Run("MEditSelNone");
  QTest::mousePress(view, Qt::RightButton, {}, on(1));
  move(1);
  QCoreApplication::processEvents();
  AtEachPaint watch(window, [&] { move(2); });
  window.Add("c:\\m");
  EXPECT_EQ(window.Rows().At(1).cells[kFileName], "a.mp3");
  EXPECT_EQ(window.Rows().At(2).cells[kFileName], "b.mp3");
}

TEST_F(SlowBatch, IsNoHindranceForAnEndFromOutsideAndTheListIsKept) {
  window.Add("c:\\m");
  window.program->engine.recovery.Settle();
  const std::string list = window.drives.Read("own/recovery-1.m3u");
  ASSERT_EQ(window.Rows().Count(), 150);
  int rows_then = -1;
  int ends = 0;
  QObject::connect(window.main, &Main::ended, window.main, [&] {
    ++ends;
    rows_then = window.Rows().Count();
  });
  AtEachPaint watch(window, [&] {
    if (watch.steps == 1) QMetaObject::invokeMethod(window.main, &Main::EndUnasked, Qt::QueuedConnection);
  });
  window.Run("MViewRefresh");
  EXPECT_EQ(ends, 1) << "it waited for the batch";
  EXPECT_EQ(rows_then, 0);
  EXPECT_EQ(window.drives.Read("own/recovery-1.m3u"), list);
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

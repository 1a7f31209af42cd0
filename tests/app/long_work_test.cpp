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
#include <algorithm>
#include <set>
#include <thread>

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

// Each reading of a folder takes longer than the window waits before it paints again.
class SlowFolders : public SlowFileSystem {
 public:
  SlowFolders() : SlowFileSystem(std::chrono::milliseconds(0)) {}
  std::vector<FolderEntry> ReadFolder(const std::string& folder) const override {
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    return SlowFileSystem::ReadFolder(folder);
  }
};

// Notes what the last panel says whenever it is painted.
class PaintedActivity : public QObject {
 public:
  explicit PaintedActivity(MainWindow& window) : panel_(*window.main->findChild<QLabel*>("Panel4")) {
    panel_.installEventFilter(this);
  }
  std::vector<std::string> texts;

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) texts.push_back(panel_.text().toStdString());
    return false;
  }

 private:
  QLabel& panel_;
};

TEST(LongWork, ShowsEachFolderOfAWalkInTheLastPanelAndClearsIt) {
  MainWindow window([] { return std::make_unique<SlowFolders>(); });
  window.Start();
  for (int i = 0; i < 20; ++i) window.drives.Write("m/" + std::to_string(100 + i) + "/deep/a.mp3", kNoise);
  PaintedActivity painted(window);
  window.Add("c:\\m");
  EXPECT_EQ(window.Panel(4), "");
  const auto blank = std::ranges::count(painted.texts, "");
  const auto folders =
      std::ranges::count_if(painted.texts, [](const auto& text) { return text.starts_with("c:\\m"); });
  EXPECT_GE(folders, 30);
  EXPECT_LE(blank, 3) << "only before and after";
}

TEST(LongWork, HasTheWaitCursorOverTheWholeWindow) {
  MainWindow window([] { return std::make_unique<SlowFileSystem>(std::chrono::milliseconds(5)); });
  window.Start();
  for (int i = 0; i < 50; ++i) window.drives.Write("m/" + std::to_string(100 + i) + ".mp3", kNoise);
  std::set<Qt::CursorShape> shapes;
  AtEachPaint watch(window, [&] {
    for (const QWidget* widget : {static_cast<QWidget*>(window.main), window.List().viewport()})
      shapes.insert(widget->cursor().shape());
  });
  window.Add("c:\\m");
  EXPECT_EQ(shapes, std::set<Qt::CursorShape>{Qt::WaitCursor});
  EXPECT_EQ(window.main->cursor().shape(), Qt::ArrowCursor);
}

// The cursor at each change of it.
class CursorChanges : public QObject {
 public:
  explicit CursorChanges(QWidget& window) : window_(window) { window.installEventFilter(this); }
  std::vector<Qt::CursorShape> shapes;

  bool eventFilter(QObject*, QEvent* event) override {
    const Qt::CursorShape shape = window_.cursor().shape();
    if (event->type() == QEvent::CursorChange && (shapes.empty() || shapes.back() != shape)) shapes.push_back(shape);
    return false;
  }

 private:
  QWidget& window_;
};

TEST(LongWork, HasTheWaitCursorAlsoWhileTheWindowWorksOutItsStateAndWhileStateIsStored) {
  MainWindow window;
  window.Start();
  const std::vector<Qt::CursorShape> kOnce{Qt::WaitCursor, Qt::ArrowCursor};
  {
    CursorChanges changes(*window.main);
    window.program->engine.view.Refresh();
    EXPECT_EQ(changes.shapes, kOnce);
  }
  for (const bool store : {true, false}) {
    CursorChanges changes(*window.main);
    window.program->engine.session.SetFormState(store);
    EXPECT_EQ(changes.shapes, kOnce);
  }
}

TEST_F(SlowBatch, StopsByEscapeAndByNoOtherKey) {
  window.drives.Write("two/a.mp3", kNoise);
  window.drives.Write("two/b.mp3", kNoise);
  window.Add("c:\\two");
  const auto press = [&](int key) {
    QCoreApplication::postEvent(&window.List(), new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier));
  };
  QString said;
  AtEachPaint watch(window, [&] {
    said = window.main->findChild<QDialog*>("Status")->findChild<QLabel*>("StopText")->text();
    press(watch.steps < 6 ? Qt::Key_Space : Qt::Key_Escape);
  });
  window.Add("c:\\m");
  EXPECT_GE(watch.steps, 6);
  EXPECT_EQ(said, QStringLiteral("Esc stops; the list stays as it was"));
  EXPECT_EQ(window.Names(), "a.mp3 b.mp3");
  EXPECT_EQ(window.Selected(), "xx");
  EXPECT_FALSE(window.main->findChild<QDialog*>("Status")->isVisible());
  EXPECT_FALSE(window.feedback.Busy());
}

TEST_F(SlowBatch, HidesTheListWhileItIsReadAnewAndGivesItTheKeyboardBack) {
  window.Add("c:\\m");
  window.main->activateWindow();
  window.List().setFocus();
  ASSERT_TRUE(QTest::qWaitFor([&] { return window.List().hasFocus(); }));
  int seen = 0;
  AtEachPaint watch(window, [&] { seen += window.List().isVisible() ? 1 : 0; });
  window.Run("MViewRefresh");
  EXPECT_GE(watch.steps, 5);
  EXPECT_EQ(seen, 0);
  EXPECT_TRUE(window.List().isVisible());
  EXPECT_EQ(window.main->focusWidget(), &window.List());
  EXPECT_EQ(window.Rows().Count(), 150);
}

// As Escape in the middle of a drop of two folders.
TEST_F(SlowBatch, TakesBackTheFirstFolderOfADropThatIsStoppedInTheSecond) {
  window.drives.Write("two/a.mp3", kNoise);
  window.Add("c:\\two");
  const auto native = [&](const char* name) { return (window.drives.C() / name).string(); };
  std::size_t most = 0;
  AtEachPaint watch(window, [&] {
    most = std::max(most, static_cast<std::size_t>(window.Rows().Count()));
    if (window.Rows().Count() > 1)
      QCoreApplication::postEvent(&window.List(), new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
  });
  for (int i = 0; i < 80; ++i) window.drives.Write("n/" + std::to_string(1000 + i) + ".mp3", kNoise);
  emit window.List().filesDropped({native("m"), native("n")}, QPoint(5, 5));
  EXPECT_EQ(most, 81U) << "the last name comes first";
  EXPECT_EQ(window.Names(), "a.mp3");
  EXPECT_EQ(window.Panel(1), "Track: 1/1");
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

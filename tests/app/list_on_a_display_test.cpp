#include <gtest/gtest.h>

#include <QClipboard>
#include <QHeaderView>
#include <QProcess>
#include <QScrollBar>
#include <utility>

#include "support/main_window.h"
#include "support/slow_file_system.h"

namespace qublet {
namespace {

constexpr int kPatience = 20'000;  // milliseconds

// The main window under a window manager, with events that come from the display as a person's do.
class ListOnADisplay : public testing::Test {
 protected:
  // Five rows, a to e; none is selected.
  explicit ListOnADisplay(std::chrono::milliseconds an_opening_takes = {})
      : window([=] { return std::make_unique<SlowFileSystem>(an_opening_takes); }) {
    for (const char* name : {"a", "b", "c", "d", "e"}) window.drives.Write(std::string("m/") + name + ".mp3", kNoise);
    window.Start();
    window.Add("c:\\m");
    window.Run("MEditSelNone");
    window.document->PlaylistChanged = false;
  }
  ~ListOnADisplay() override {
    Menu().close();
    peer.kill();
    peer.waitForFinished();
  }

  void SetUp() override {
    ASSERT_EQ(QGuiApplication::platformName(), QStringLiteral("xcb")) << "these tests need a display";
    window.main->setGeometry(60, 90, 900, 500);
    window.main->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.main));
    // The window manager may still be moving it.
    QPoint before(-1, -1);
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
          QTest::qWait(100);
          return before == std::exchange(before, window.List().mapToGlobal(QPoint()));
        },
        kPatience));
  }

  QWidget& View() { return *window.List().viewport(); }
  QMenu& Menu() { return *window.main->findChild<QMenu*>("MEdit"); }
  std::string Order() {
    std::string order;
    for (int i = 1; i <= window.Rows().Count(); ++i) order += window.Rows().At(i).cells[kFileName][0];
    return order;
  }
  // A point of the screen on a row, from 1; beyond the last row it lies in the free room below.
  QPoint On(int row) {
    const QModelIndex index = window.List().model()->index(row - 1, kFileName);
    return View().mapToGlobal(index.isValid() ? window.List().visualRect(index).center()
                                              : View().rect().bottomLeft() + QPoint(20, -20));
  }
  QPoint OnHeader(int column, int offset) {
    QHeaderView& header = *window.List().header();
    return header.viewport()->mapToGlobal(
        QPoint(header.sectionViewportPosition(column) + offset, header.height() / 2));
  }
  void Select(std::initializer_list<int> rows) {
    window.Run("MEditSelNone");
    for (const int row : rows) window.Rows().SetSelected(row, true);
  }

  // Steps of xdotool, done while the windows live.
  static QStringList To(QPoint point) {
    return {"mousemove", QString::number(point.x()), QString::number(point.y()), "sleep", "0.05"};
  }
  static QStringList Do(const char* what, const char* which) { return {what, which, "sleep", "0.05"}; }
  static QStringList Along(QPoint from, QPoint to, int steps) {
    QStringList along;
    for (int i = 1; i <= steps; ++i) along += To(from + (to - from) * i / steps);
    return along;
  }
  static void Perform(const QStringList& steps) {
    QProcess tool;
    tool.start("xdotool", steps);
    EXPECT_TRUE(QTest::qWaitFor([&] { return tool.state() == QProcess::NotRunning; }, kPatience));
    EXPECT_EQ(tool.exitCode(), 0) << tool.readAllStandardError().toStdString();
    QTest::qWait(50);
  }
  static void Drag(QPoint from, QPoint to, const char* button = "1", int steps = 8) {
    Perform(To(from) + Do("mousedown", button) + Along(from, to, steps) + To(to) + Do("mouseup", button));
  }
  static void Click(QPoint at, const char* button = "1") { Perform(To(at) + Do("click", button)); }
  static void Type(const char* key) { Perform(Do("key", key)); }

  // Another program beside the window.
  QPoint StartPeer(const QStringList& addresses = {}) {
    peer.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    peer.start(QUBLET_DRAG_PEER, QStringList{"1100", "300", "200"} + addresses);
    EXPECT_EQ(Told("ready"), "ready");
    return {1200, 400};
  }
  // The first line of the other program that begins so.
  std::string Told(const std::string& start) {
    std::string found;
    const bool came = QTest::qWaitFor(
        [&] {
          lines += peer.readAllStandardOutput();
          for (const QByteArray& line : lines.split('\n')) {
            if (line.startsWith(start.c_str())) found = line.toStdString();
          }
          return !found.empty();
        },
        kPatience);
    EXPECT_TRUE(came) << "waited in vain for " << start;
    return found;
  }
  QString AddressOf(const std::string& name) {
    return QString::fromUtf8("file://" +
                             QByteArray::fromStdString((window.drives.C() / name).string()).toPercentEncoding("/"));
  }
  void ExpectNames(const std::string& names) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.Names() == names; }, kPatience)) << window.Names();
  }

  MainWindow window;
  QProcess peer;
  QByteArray lines;
};

TEST_F(ListOnADisplay, TakesFilesFoldersAndPlaylistsFromAnotherProgram) {
  window.drives.Write("two/x.mp3", kNoise);
  window.drives.Write("two/y.mp3", kNoise);
  window.drives.Write("list.m3u", "c:\\two\\y.mp3\r\n");
  window.drives.Write("100% #1?\xC3\xA9.mp3", kNoise);
  const QPoint other = StartPeer(
      {AddressOf("two"), "http://example.org/no.mp3", AddressOf("list.m3u"), AddressOf("100% #1?\xC3\xA9.mp3")});
  Drag(other, On(3));
  ExpectNames("a.mp3 b.mp3 x.mp3 y.mp3 y.mp3 100% #1?\xC3\xA9.mp3 c.mp3 d.mp3 e.mp3");
  EXPECT_EQ(Told("gave"), "gave 1") << "they are copied, though the other program would rather move them";
  EXPECT_EQ(window.Rows().At(6).icon, RowIcon::kNormal);
  EXPECT_EQ(window.Panel(1), "2 Items");
  EXPECT_FALSE(window.program->engine.view.Dropping());
}

TEST_F(ListOnADisplay, RefusesAddressesElsewhere) {
  const QPoint other = StartPeer({"http://example.org/no.mp3"});
  Drag(other, On(3));
  EXPECT_EQ(Told("gave"), "gave 0");
  EXPECT_EQ(Order(), "abcde");
}

TEST_F(ListOnADisplay, GivesTheSelectedRowsToAnotherProgramAsFiles) {
  window.drives.Write("100% #1.mp3", kNoise);
  window.Add("c:\\100% #1.mp3");
  Select({1, 3, 6});
  const QPoint other = StartPeer();
  Drag(On(3), other);
  const std::string c = "file://" + window.drives.C().string();
  EXPECT_EQ(Told("took"), "took 1 " + c + "/m/a.mp3 " + c + "/m/c.mp3 " + c + "/100%25%20%231.mp3 ");
  EXPECT_EQ(window.Selected(), "x-x--x");
  EXPECT_EQ(window.Rows().Count(), 6);
}

TEST_F(ListOnADisplay, TakesNoDropOfItsOwnRowsAndOthersAgainAfterwards) {
  Select({1, 2});
  Drag(On(2), On(4));
  EXPECT_EQ(Order(), "abcde");
  EXPECT_EQ(window.Selected(), "xx---");
  window.drives.Write("x.mp3", kNoise);
  Drag(StartPeer({AddressOf("x.mp3")}), On(99));
  ExpectNames("a.mp3 b.mp3 c.mp3 d.mp3 e.mp3 x.mp3");
}

TEST_F(ListOnADisplay, ReordersRowsWithTheRightButton) {
  Drag(On(2), On(4), "3", 30);
  EXPECT_EQ(Order(), "acdbe");
  EXPECT_EQ(window.Selected(), "---x-");
  EXPECT_FALSE(Menu().isVisible());
  EXPECT_TRUE(window.document->PlaylistChanged);
  Drag(On(4), On(1), "3", 30);
  EXPECT_EQ(Order(), "bacde");
  EXPECT_FALSE(Menu().isVisible());
  EXPECT_EQ(window.Panel(1), "Track: 1/5");
}

TEST_F(ListOnADisplay, PopsUpItsMenuByARightClickAndRunsItsEntries) {
  Click(On(3), "3");
  ASSERT_TRUE(Menu().isVisible());
  EXPECT_EQ(window.Selected(), "--x--");
  EXPECT_LE((Menu().pos() - On(3)).manhattanLength(), 4);
  Click(Menu().mapToGlobal(Menu().actionGeometry(window.Action("MEditRemove")).center()));
  EXPECT_EQ(Order(), "abde");
  EXPECT_FALSE(Menu().isVisible());
}

TEST_F(ListOnADisplay, PopsUpItsMenuByTheKeyboard) {
  Click(On(4));
  for (const char* key : {"Menu", "shift+F10"}) {
    Type(key);
    ASSERT_TRUE(Menu().isVisible()) << key;
    EXPECT_EQ(window.List().GetRowAtPoint(View().mapFromGlobal(Menu().pos()).y()), 3) << key;
    Type("Escape");
    EXPECT_FALSE(Menu().isVisible()) << key;
  }
}

TEST_F(ListOnADisplay, PlaysByADoubleClick) {
  Perform(To(On(2)) + QStringList{"click", "--repeat", "2", "--delay", "60", "1"});
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.shell.opened.size() == 1; }, kPatience));
  EXPECT_EQ(window.Selected(), "-x---");
}

TEST_F(ListOnADisplay, SelectsByClicksAndKeys) {
  Click(On(2));
  EXPECT_EQ(window.Selected(), "-x---");
  Perform(QStringList{"keydown", "shift"} + To(On(4)) + Do("click", "1") + Do("keyup", "shift"));
  EXPECT_EQ(window.Selected(), "-xxx-");
  Perform(QStringList{"keydown", "ctrl"} + To(On(3)) + Do("click", "1") + Do("keyup", "ctrl"));
  EXPECT_EQ(window.Selected(), "-x-x-");
  Type("Down");
  EXPECT_EQ(window.Selected(), "---x-");
}

TEST_F(ListOnADisplay, SortsByAClickOnAHeaderAndOpensNoHiddenColumn) {
  window.settings->PROMPTSORT = false;
  Click(OnHeader(kFileName, 30));
  QTest::qWait(QApplication::doubleClickInterval() + 200);
  Click(OnHeader(kFileName, 30));
  EXPECT_EQ(Order(), "edcba");
  // Bring the last columns into sight.
  window.List().horizontalScrollBar()->setValue(window.List().horizontalScrollBar()->maximum());
  const QPoint border = OnHeader(kOriginalOrder, 0);
  for (const int off : {-2, 2}) {
    Drag(border + QPoint(off, 0), border + QPoint(off - 30, 0));
    EXPECT_TRUE(window.List().isColumnHidden(kHiddenLen) && window.List().isColumnHidden(kHiddenSize));
  }
  EXPECT_EQ(Order(), "edcba");
}

TEST_F(ListOnADisplay, RunsItsKeysAlsoWhereTheMenuEntryIsDisabled) {
  Click(On(2));
  for (const char* name : {"MEditRemove", "MEditAddDir", "MEditPlaySel"}) window.Action(name)->setEnabled(false);
  Type("KP_Enter");
  Type("Return");
  EXPECT_EQ(window.shell.opened.size(), 2U);
  Type("Delete");
  EXPECT_EQ(Order(), "acde");
  window.dialogs.folders = {"c:\\m\\b.mp3"};
  window.Action("MEditAddDir")->setEnabled(false);
  Type("Insert");
  EXPECT_EQ(Order(), "acdeb");
}

// More rows than can be seen: 1001.mp3 to 1200.mp3.
class LongListOnADisplay : public ListOnADisplay {
 protected:
  LongListOnADisplay() {
    std::string names;
    for (int i = 1; i <= 200; ++i) names += "c:\\gone\\" + std::to_string(1000 + i) + ".mp3\r\n";
    window.drives.Write("long.m3u", names);
    window.Run("MFileNew");
    window.Add("c:\\long.m3u");
    window.Run("MEditSelNone");
    window.document->PlaylistChanged = false;
    window.List().scrollToTop();
  }
  int Top() { return window.List().verticalScrollBar()->value(); }
  QPoint AtTheBottom(int beyond) { return View().mapToGlobal(View().rect().bottomLeft() + QPoint(20, beyond)); }
  int RowNamed(const std::string& name) {
    int row = 1;
    while (window.Rows().At(row).cells[kFileName] != name) ++row;
    return row;
  }
  // Presses the button on a row, moves to the point, and holds still there.
  void Hold(int row, QPoint point, const char* button) {
    Perform(To(On(row)) + Do("mousedown", button) + Along(On(row), point, 10) + To(point));
  }
};

TEST_F(LongListOnADisplay, ScrollsWhileADrawnSelectionIsHeldAtTheBorder) {
  for (const int beyond : {-2, 40}) {
    window.List().scrollToTop();
    window.Run("MEditSelNone");
    const QPoint start =
        View().mapToGlobal(window.List().visualRect(window.List().model()->index(1, kTime)).center());
    Perform(To(start) + Do("mousedown", "1") + Along(start, AtTheBottom(beyond) + QPoint(300, 0), 10));
    const int before = Top();
    QTest::qWait(1500);
    EXPECT_GT(Top(), before + 8) << beyond;
    Perform(Do("mouseup", "1"));
    const int after = Top();
    const int last = window.List().GetRowAtPoint(View().height() - 1) + 1;
    EXPECT_GE(window.Rows().SelectedCount(), last - 3) << "all from row 2 to the border are selected";
    EXPECT_FALSE(window.Rows().At(1).selected);
    QTest::qWait(500);
    EXPECT_EQ(Top(), after) << "it rests when the button is up";
  }
}

TEST_F(LongListOnADisplay, CarriesRowsOnWhileTheRightButtonIsHeldAtTheBorder) {
  Hold(3, AtTheBottom(-2), "3");
  const int before = RowNamed("1003.mp3");
  QTest::qWait(1500);
  Perform(Do("mouseup", "3"));
  EXPECT_GT(RowNamed("1003.mp3"), before + 8);
  EXPECT_EQ(window.Rows().SelectedCount(), 1);
  EXPECT_FALSE(Menu().isVisible());
  const int row = RowNamed("1003.mp3");
  Hold(row, View().mapToGlobal(QPoint(20, -10)), "3");
  QTest::qWait(6000);
  Perform(Do("mouseup", "3"));
  EXPECT_LE(RowNamed("1003.mp3"), 3) << "and back up again";
}

TEST_F(LongListOnADisplay, ScrollsUnderADragOfFiles) {
  window.drives.Write("x.mp3", kNoise);
  const QPoint other = StartPeer({AddressOf("x.mp3")});
  Perform(To(other) + Do("mousedown", "1") + Along(other, AtTheBottom(-3), 12) + To(AtTheBottom(-3)));
  QTest::qWait(1500);
  const int top = Top();
  EXPECT_GT(top, 5);
  Perform(To(AtTheBottom(-60)) + Do("mouseup", "1"));
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.Rows().Count() == 201; }, kPatience));
  EXPECT_GT(RowNamed("x.mp3"), top);
}

TEST_F(ListOnADisplay, UnderlinesTheRowUnderThePointerWhereWanted) {
  window.List().SetHotTracking(true);
  Perform(To(View().mapToGlobal(View().rect().bottomRight() - QPoint(20, 20))));
  const QImage before = View().grab().toImage();
  Perform(To(On(2)));
  EXPECT_TRUE(QTest::qWaitFor([&] { return View().grab().toImage() != before; }, kPatience));
}

TEST_F(ListOnADisplay, LeavesTheSelectionToKeysOfDisabledEntries) {
  Click(On(2));
  Type("ctrl+a");
  for (const char* key : {"alt+Up", "alt+Down", "alt+Home", "alt+End", "shift+Delete", "ctrl+Insert"}) {
    Type(key);
    EXPECT_EQ(window.Selected(), "xxxxx") << key;
    EXPECT_EQ(Order(), "abcde") << key;
  }
  Click(On(99));
  EXPECT_EQ(window.Selected(), "-----");
}

// A batch that takes some seconds, and what happens meanwhile.
class BatchOnADisplay : public ListOnADisplay {
 protected:
  BatchOnADisplay() : ListOnADisplay(std::chrono::milliseconds(20)) {
    for (int i = 0; i < 300; ++i) window.drives.Write("big/" + std::to_string(1000 + i) + ".mp3", kNoise);
  }
};

TEST_F(BatchOnADisplay, ThrowsAwayWhatIsPressedMeanwhile) {
  QProcess tool;
  tool.start("xdotool", QStringList{"sleep", "1"} + To(On(2)) + Do("click", "1") + Do("key", "Delete") +
                            Do("key", "F5") + Do("mousedown", "3") + To(On(4)) + Do("mouseup", "3"));
  ASSERT_TRUE(tool.waitForStarted());
  window.Add("c:\\big");
  EXPECT_TRUE(tool.waitForFinished(0) || tool.state() == QProcess::NotRunning) << "the batch was too short";
  EXPECT_EQ(window.Rows().Count(), 305);
  EXPECT_EQ(window.Rows().SelectedCount(), 300);
  EXPECT_FALSE(Menu().isVisible());
  Click(On(3));
  EXPECT_EQ(window.Rows().SelectedCount(), 1) << "afterwards the mouse works as before";
}

TEST_F(BatchOnADisplay, AnswersOtherProgramsMeanwhile) {
  QGuiApplication::clipboard()->setText("still here");
  const auto start = window.drives.Root() / "start";
  const auto result = window.drives.Root() / "result";
  peer.start(QUBLET_DRAG_PEER,
             {"--clipboard", QString::fromStdString(start.string()), QString::fromStdString(result.string())});
  ASSERT_TRUE(peer.waitForStarted());
  QTest::qWait(500);
  TemporaryDrives::WriteAt(start, "");
  window.Add("c:\\big");
  EXPECT_EQ(TemporaryDrives::ReadAt(result), "still here");
}

}  // namespace
}  // namespace qublet

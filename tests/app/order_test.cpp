#include <gtest/gtest.h>

#include <QHeaderView>
#include <QScrollBar>
#include <QWindow>

#include "support/main_window.h"

namespace qublet {
namespace {

class OrderTest : public testing::Test {
 protected:
  // Four files whose names, sizes and lengths stand in different orders, in the order c, a, d, b.
  OrderTest() {
    window.Start();
    window.settings->PROMPTSORT = false;
    window.drives.Write("list.m3u", "one\\c.mp3\r\none\\a.mp3\r\ntwo\\d.mp3\r\none\\b.mp3\r\n");
    window.drives.Write("one/c.mp3", "1");
    window.drives.Write("one/a.mp3", "22");
    window.drives.Write("two/d.mp3", "4444");
    window.drives.Write("one/b.mp3", "333");
    window.Add("c:\\list.m3u");
    window.Run("MEditSelNone");
    const char* lengths[] = {"30", "4", "100", "2"};
    for (int row = 1; row <= 4; ++row) window.Rows().SetCell(row, kHiddenLen, lengths[row - 1]);
    window.document->PlaylistChanged = false;
  }

  // As by Ctrl and the mouse.
  void Select(std::initializer_list<int> rows) {
    for (const int row : rows) {
      const QModelIndex index = window.List().model()->index(row - 1, 0);
      window.List().selectionModel()->select(index, QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
  }
  void ClickHeader(int column) {
    QHeaderView* header = window.List().header();
    const QPoint point(header->sectionViewportPosition(column) + 10, header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, point);
  }
  std::string Sorted(const char* command) {
    window.Run(command);
    return window.Names();
  }

  MainWindow window;
};

TEST_F(OrderTest, SortsFromTheMenuByEveryColumn) {
  for (int row = 1; row <= 4; ++row) {
    window.Rows().SetCell(row, kId, std::to_string(row));
    window.Rows().SetCell(row, kLayer, std::to_string(9 - row));
    window.Rows().SetCell(row, kSamplerate, std::to_string(row % 3));
    window.Rows().SetCell(row, kMode, std::to_string(7 - row));
  }
  const char* rates[] = {"64 Kbit", "128 Kbit", "320 Kbit", "96 Kbit"};
  for (int row = 1; row <= 4; ++row) window.Rows().SetCell(row, kBitrate, rates[row - 1]);
  EXPECT_EQ(Sorted("MViewSortFilename"), "a.mp3 b.mp3 c.mp3 d.mp3");
  EXPECT_EQ(Sorted("MViewSortTime"), "b.mp3 a.mp3 c.mp3 d.mp3");
  EXPECT_EQ(Sorted("MViewSortSize"), "c.mp3 a.mp3 b.mp3 d.mp3");
  EXPECT_EQ(Sorted("MViewSortFolder"), "c.mp3 a.mp3 b.mp3 d.mp3");
  EXPECT_EQ(Sorted("MViewSortID"), "c.mp3 a.mp3 d.mp3 b.mp3");
  EXPECT_EQ(Sorted("MViewSortLayer"), "b.mp3 d.mp3 a.mp3 c.mp3");
  EXPECT_EQ(Sorted("MViewSortBitrate"), "a.mp3 d.mp3 c.mp3 b.mp3");
  EXPECT_EQ(Sorted("MViewSortSamplerate"), "d.mp3 c.mp3 b.mp3 a.mp3");
  EXPECT_EQ(Sorted("MViewSortMode"), "b.mp3 d.mp3 a.mp3 c.mp3");
  EXPECT_EQ(Sorted("MViewSortOrig"), "c.mp3 a.mp3 d.mp3 b.mp3");
  EXPECT_EQ(Sorted("MViewSortOrig"), "b.mp3 d.mp3 a.mp3 c.mp3");
  EXPECT_FALSE(window.document->PlaylistChanged);
}

TEST_F(OrderTest, SortsByAClickOnAHeaderAsFromTheMenu) {
  ClickHeader(kTime);
  EXPECT_EQ(window.Names(), "b.mp3 a.mp3 c.mp3 d.mp3");
  EXPECT_EQ(Sorted("MViewSortTime"), "d.mp3 c.mp3 a.mp3 b.mp3");
  ClickHeader(kFileName);
  EXPECT_EQ(window.Names(), "a.mp3 b.mp3 c.mp3 d.mp3");
}

TEST_F(OrderTest, AsksBeforeASortWhenTheUserWantsToBeAsked) {
  window.settings->PROMPTSORT = true;
  window.dialogs.answers = {MessageAnswer::kNo, MessageAnswer::kYes};
  ClickHeader(kSize);
  EXPECT_EQ(window.Names(), "c.mp3 a.mp3 d.mp3 b.mp3");
  EXPECT_EQ(window.dialogs.messages[0].text, "Sort by Size?");
  ClickHeader(kSize);
  EXPECT_EQ(window.Names(), "c.mp3 a.mp3 b.mp3 d.mp3");
}

TEST_F(OrderTest, ShowsTheSortedRowsAndLeavesThePlaceInTheList) {
  window.drives.Write("long.m3u", [] {
    std::string lines;
    for (int i = 0; i < 500; ++i) lines += "c:\\gone\\" + std::to_string(1000 - i) + ".mp3\r\n";
    return lines;
  }());
  window.Add("c:\\long.m3u");
  window.Run("MEditSelNone");
  window.Rows().SetFocusedRow(6);
  window.List().scrollToTop();
  window.Run("MViewSortFilename");
  EXPECT_EQ(window.List().verticalScrollBar()->value(), 0);
  EXPECT_EQ(window.List().model()->index(0, 0).data().toString(), QStringLiteral("1000.mp3"));
  EXPECT_EQ(window.List().currentIndex().row() + 1, window.Rows().FocusedRow());
  EXPECT_EQ(window.Rows().At(window.Rows().FocusedRow()).cells[kFileName], "999.mp3");
}

TEST_F(OrderTest, MovesTheSelectedRowsByMenuKeysAndToolbar) {
  Select({2, 3});
  window.Run("MEditMoveDown");
  EXPECT_EQ(window.Names(), "c.mp3 b.mp3 a.mp3 d.mp3");
  EXPECT_EQ(window.Selected(), "--xx");
  window.Run("MEditMoveUp");
  EXPECT_EQ(window.Names(), "c.mp3 a.mp3 d.mp3 b.mp3");
  EXPECT_TRUE(window.document->PlaylistChanged);
  window.List().setFocus();
  window.main->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.main));
  QTest::keyClick(window.main->windowHandle(), Qt::Key_Up, Qt::AltModifier);
  EXPECT_EQ(window.Names(), "a.mp3 d.mp3 c.mp3 b.mp3");
  EXPECT_EQ(window.Selected(), "xx--");
  QTest::keyClick(window.main->windowHandle(), Qt::Key_Down, Qt::AltModifier);
  EXPECT_EQ(window.Names(), "c.mp3 a.mp3 d.mp3 b.mp3");
  window.Action("Toolbar1 Move Items Up")->trigger();
  EXPECT_EQ(window.Names(), "a.mp3 d.mp3 c.mp3 b.mp3");
  window.Action("Toolbar1 Move Items Down")->trigger();
  EXPECT_EQ(window.Names(), "c.mp3 a.mp3 d.mp3 b.mp3");
  EXPECT_EQ(window.Panel(1), "2 Items");
}

TEST_F(OrderTest, FocusesTheMovedRowAndRefreshesTheStatus) {
  Select({3});
  window.Rows().SetFocusedRow(3);
  window.Run("MEditMoveUp");
  EXPECT_EQ(window.Rows().FocusedRow(), 2);
  EXPECT_EQ(window.List().currentIndex().row(), 1);
  EXPECT_EQ(window.Panel(1), "Track: 2/4");
}

TEST_F(OrderTest, MovesTheSelectedRowsToTheTopAndTheBottom) {
  Select({2, 4});
  window.Run("MEditSelTop");
  EXPECT_EQ(window.Names(), "a.mp3 b.mp3 c.mp3 d.mp3");
  EXPECT_EQ(window.Selected(), "xx--");
  window.Run("MEditSelBottom");
  EXPECT_EQ(window.Names(), "c.mp3 d.mp3 a.mp3 b.mp3");
  EXPECT_EQ(window.Selected(), "--xx");
  EXPECT_FALSE(window.document->PlaylistChanged);
}

TEST_F(OrderTest, ShufflesTheSelectedRows) {
  window.Run("MEditSelAll");
  window.settings->SHUFFLEINT = 0;
  window.random.draws = {0.5, 0.25, 0.75, 0.25};
  window.Run("MEditSelShuffle");
  EXPECT_EQ(window.Names(), "a.mp3 d.mp3 c.mp3 b.mp3");
  EXPECT_EQ(window.Selected(), "xxxx");
  EXPECT_EQ(window.settings->SHUFFLEINT, 1);
  EXPECT_FALSE(window.document->PlaylistChanged);
}

TEST_F(OrderTest, BearsTheCaptionsOfTheCommands) {
  const std::vector<std::pair<const char*, const char*>> captions{
      {"MEditMoveUp", "Move &Up"},
      {"MEditMoveDown", "Move &Down"},
      {"MEditSelTop", "Move to &Top"},
      {"MEditSelBottom", "Move to &Bottom"},
      {"MEditSelShuffle", "Shuffle Selection"},
      {"MViewSortFilename", "by &Filename"},
      {"MViewSortTime", "by &Length"},
      {"MViewSortSize", "by &Size"},
      {"MViewSortFolder", "by Fol&der"},
      {"MViewSortID", "by &ID"},
      {"MViewSortLayer", "by La&yer"},
      {"MViewSortBitrate", "by &Bitrate"},
      {"MViewSortSamplerate", "by S&amplerate"},
      {"MViewSortMode", "by &Mode"},
      {"MViewSortOrig", "by &Original Order"},
  };
  for (const auto& [name, caption] : captions) EXPECT_EQ(window.Action(name)->text().toStdString(), caption);
  EXPECT_EQ(window.main->findChild<QMenu*>("MViewSort")->title().toStdString(), "Sort");
}

}  // namespace
}  // namespace qublet

#include "playlist/items_test_base.h"

namespace qublet {
namespace {

using FileArray = ItemsTest;

TEST_F(FileArray, GetsAllPathsOrThoseOfTheSelectedRowsAppended) {
  Stock(3);
  items_.AddFile("c:\\gone.mp3", 0, 0);
  Rows().SelectWhere([](int index, const Row&) { return index == 2 || index == 4; });
  document_.FileArray = {"before"};
  items_.SaveFileArrayFromList(false);
  EXPECT_EQ(document_.FileArray, (Collection{"before", "c:\\old\\2.mp3", "c:\\gone.mp3"}));
  DestroyFileArray(document_);
  EXPECT_EQ(document_.FileArray, Collection{});
  items_.SaveFileArrayFromList(true);
  EXPECT_EQ(document_.FileArray, (Collection{"c:\\old\\1.mp3", "c:\\old\\2.mp3", "c:\\old\\3.mp3", "c:\\gone.mp3"}));
  items_.SaveFileArrayFromList(true);
  EXPECT_EQ(document_.FileArray.size(), 8U);
  EXPECT_EQ(feedback_.waits, 0);
  EXPECT_EQ(feedback_.most_waits, 1);
}

TEST_F(FileArray, IsLoadedInItsOrderBeforeARow) {
  Stock(2);
  Touch({"a.mp3", "b.mp3", "c.mp3"});
  document_.FileArray = {"c:\\c.mp3", "c:\\a.mp3", "c:\\b.mp3"};
  items_.LoadFileArrayToList(2);
  EXPECT_EQ(Names(), "1.mp3 c.mp3 a.mp3 b.mp3 2.mp3");
  EXPECT_EQ(Orders(), "1 3 4 5 2");
  EXPECT_FALSE(document_.PlaylistChanged);
  EXPECT_EQ(document_.FileArray.size(), 3U);
}

TEST_F(FileArray, IsReversedAtTheEndWithoutAnInsertPoint) {
  Stock(1);
  Touch({"a.mp3", "b.mp3", "c.mp3"});
  document_.FileArray = {"c:\\a.mp3", "c:\\b.mp3", "c:\\c.mp3"};
  items_.LoadFileArrayToList(0);
  EXPECT_EQ(Names(), "1.mp3 c.mp3 b.mp3 a.mp3");
  EXPECT_EQ(Orders(), "1 4 3 2");
}

TEST_F(FileArray, LoadsNothingFromNothing) {
  items_.LoadFileArrayToList(1);
  EXPECT_EQ(Rows().Count(), 0);
  ASSERT_EQ(feedback_.progress.size(), 1U);
  EXPECT_EQ(feedback_.progress[0].maximum, 0);
  EXPECT_TRUE(feedback_.progress[0].ended);
}

using Refresh = ItemsTest;

TEST_F(Refresh, ReadsEveryRowAgainAndTakesTheOrderAsItStands) {
  Stock(3);
  drives_.Write("old/2.mp3", TextOf(Frames(100)));
  std::filesystem::remove(drives_.C() / "old/1.mp3");
  Rows().SwapRows(1, 3);
  Rows().SetIcon(2, RowIcon::kRed);
  Rows().SetSelected(2, true);
  items_.MViewRefresh_Click();
  EXPECT_EQ(Names(), "3.mp3 2.mp3 1.mp3");
  EXPECT_EQ(Orders(), "1 2 ");
  EXPECT_EQ(Rows().At(2).cells[kBitrate], "128 Kbit");
  EXPECT_EQ(Rows().At(2).icon, RowIcon::kNormal);
  EXPECT_EQ(Rows().At(3).icon, RowIcon::kMissing);
  EXPECT_EQ(Selection(), "---");
  EXPECT_FALSE(document_.PlaylistChanged);
  EXPECT_EQ(view_.shown, (std::vector<std::string>{"hide", "show", "click"}));

  Touch({"old/1.mp3"});
  items_.MViewRefresh_Click();
  EXPECT_EQ(Rows().At(3).icon, RowIcon::kNormal);
  EXPECT_FALSE(Rows().At(3).ghosted);
}

TEST_F(Refresh, DoesNothingToAnEmptyList) {
  items_.MViewRefresh_Click();
  EXPECT_TRUE(feedback_.progress.empty());
  EXPECT_TRUE(view_.shown.empty());
}

TEST_F(ItemsTest, SelectNoneDeselectsAllAndRefreshesTheWindow) {
  Stock(2);
  Rows().SelectWhere([](int, const Row&) { return true; });
  items_.MEditSelNone_Click();
  EXPECT_EQ(Selection(), "--");
  EXPECT_EQ(view_.shown, std::vector<std::string>{"click"});
  EXPECT_EQ(feedback_.waits, 0);
}

}  // namespace
}  // namespace qublet

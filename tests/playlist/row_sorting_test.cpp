#include "playlist/row_order_test_base.h"

namespace qublet {
namespace {

using Sorting = RowOrderTest;

TEST_F(Sorting, TakesTheHiddenNumbersForLengthAndSizeAndTextForTheRest) {
  for (const int clicked : {1, 4, 5, 6, 7, 8, 9}) {
    EXPECT_EQ(SortOfColumn(clicked).lncol, clicked);
    EXPECT_EQ(SortOfColumn(clicked).lnType, SortType::kText);
  }
  EXPECT_EQ(SortOfColumn(2).lncol, 10);
  EXPECT_EQ(SortOfColumn(3).lncol, 11);
  EXPECT_EQ(SortOfColumn(12).lncol, 12);
  for (const int clicked : {2, 3, 12}) EXPECT_EQ(SortOfColumn(clicked).lnType, SortType::kNumber);
}

TEST_F(Sorting, ByTimeTwiceIsAscendingThenDescendingByTheHiddenLength) {
  Fill(kHiddenLen, {"100", "20", "3"});
  EXPECT_EQ(sort_.SortKey, -1);
  EXPECT_TRUE(Sort(kTime));
  EXPECT_EQ(Names(), "3 2 1");
  EXPECT_EQ(sort_.SortKey, 9);
  EXPECT_EQ(sort_.SortOrder, 0);
  EXPECT_TRUE(Sort(kTime));
  EXPECT_EQ(Names(), "1 2 3");
  EXPECT_EQ(sort_.SortOrder, 1);
  EXPECT_TRUE(Sort(kTime));
  EXPECT_EQ(sort_.SortOrder, 0);
}

TEST_F(Sorting, ByAnyColumnFirstIsAscending) {
  Fill(kFileName, {"b", "a"});
  EXPECT_TRUE(Sort(kFileName));
  EXPECT_EQ(Names(), "a b");
}

TEST_F(Sorting, ByAnotherColumnStartsAscending) {
  Fill(kHiddenLen, {"1", "2", "3"});
  for (int row = 1; row <= 3; ++row) Rows().SetCell(row, kHiddenSize, std::to_string(10 - row));
  Sort(kTime);
  Sort(kTime);
  Sort(kSize);
  EXPECT_EQ(Names(), "3 2 1");
  EXPECT_EQ(sort_.SortKey, 10);
  EXPECT_EQ(sort_.SortOrder, 0);
}

TEST_F(Sorting, LastingThroughANewListTurnsTheLastDirectionRound) {
  Fill(kHiddenLen, {"1", "2"});
  Sort(kTime);
  Rows().Clear();
  Fill(kHiddenLen, {"1", "2"});
  Sort(kTime);
  EXPECT_EQ(Names(), "2 1");
}

TEST_F(Sorting, ByNameIgnoresCaseAndTwiceReverses) {
  Fill(kFileName, {"b.mp3", "C.mp3", "A.mp3"});
  Sort(kFileName);
  EXPECT_EQ(Names(), "A.mp3 b.mp3 C.mp3");
  Sort(kFileName);
  EXPECT_EQ(Names(), "C.mp3 b.mp3 A.mp3");
}

TEST_F(Sorting, ByNameLeavesTheOrderOfNamesThatDifferOnlyInCase) {
  Fill(kFileName, {"z", "Same", "same", "SAME", "a"});
  Sort(kFileName);
  EXPECT_EQ(Names(), "a Same same SAME z");
  Sort(kFileName);
  EXPECT_EQ(Names(), "z Same same SAME a");
}

TEST_F(Sorting, ComparesTextsBeyondTheirFirstLetters) {
  Fill(kFileName, {"a long beginning 2", "a long beginning", "a long beginning 1", "a"});
  Sort(kFileName);
  EXPECT_EQ(CellsOf(Rows(), kFileName), "a a long beginning a long beginning 1 a long beginning 2");
}

TEST_F(Sorting, ByTextWorksForLongListsWithManyAlike) {
  std::vector<Row> rows;
  for (int i = 0; i < 5000; ++i) rows.push_back(NamedRow(std::to_string(i * 7 % 5000 / 2 + 10'000)));
  Rows().Insert(1, std::move(rows));
  Sort(kFileName);
  for (int row = 1; row <= 5000; ++row) {
    ASSERT_EQ(Rows().At(row).cells[kFileName], std::to_string((row - 1) / 2 + 10'000));
  }
}

TEST_F(Sorting, KeepsTheOrderOfEqualRowsInBothDirections) {
  Fill(kHiddenLen, {"5", "1", "5", "1", "5"});
  Sort(kTime);
  EXPECT_EQ(Names(), "2 4 1 3 5");
  Sort(kTime);
  EXPECT_EQ(Names(), "1 3 5 2 4");
  for (int row = 1; row <= 5; ++row) Rows().SetCell(row, kId, "same");
  Sort(kId);
  EXPECT_EQ(Names(), "1 3 5 2 4");
  Sort(kId);
  EXPECT_EQ(Names(), "1 3 5 2 4");
}

TEST_F(Sorting, ByBitrateGoesByItsText) {
  Fill(kBitrate, {"64 Kbit", "128 Kbit", "320 Kbit"});
  Sort(kBitrate);
  EXPECT_EQ(Cells(kBitrate), "128 Kbit 320 Kbit 64 Kbit");
}

TEST_F(Sorting, TakesAnEmptyNumberAsZeroAheadOfAllAndLeavesItEmpty) {
  Fill(kOriginalOrder, {"2", "", "1", ""});
  Sort(kOriginalOrder);
  EXPECT_EQ(Names(), "2 4 3 1");
  EXPECT_EQ(Rows().At(1).cells[kOriginalOrder], "");
  EXPECT_EQ(Rows().At(4).cells[kOriginalOrder], "2");
}

TEST_F(Sorting, LeavesCellsAndTagsAsTheyWere) {
  Fill(kHiddenLen, {"0123", "7.9", "12"});
  Sort(kTime);
  EXPECT_EQ(Cells(kHiddenLen), "7.9 12 0123");
  for (int row = 1; row <= 3; ++row) EXPECT_EQ(Rows().At(row).tag, "");
}

TEST_F(Sorting, ComparesTheWholePartsOfNumbersOnly) {
  Fill(kHiddenLen, {"7.9", "7.1", "7", "6.99"});
  Sort(kTime);
  EXPECT_EQ(Names(), "4 1 2 3");
}

TEST_F(Sorting, StopsAtACellThatIsNoNumberAndChangesNothing) {
  Fill(kHiddenLen, {"2", "1", "long"});
  Rows().SetCell(1, kHiddenSize, "9");
  Sort(kSize);
  const std::string before = Names();
  EXPECT_FALSE(Sort(kTime));
  EXPECT_EQ(Names(), before);
  EXPECT_EQ(Rows().At(3).tag, "");
  EXPECT_EQ(sort_.SortKey, 10);
  EXPECT_EQ(sort_.SortOrder, 0);
}

TEST_F(Sorting, ByDateGoesByTime) {
  Fill(kId, {"2001-10-02", "2001/09/30 00:00:01", "1999-12-31 23:59:59", "2001/9/30"});
  EXPECT_TRUE(SortAs(kId, SortType::kDate));
  EXPECT_EQ(Names(), "3 4 2 1");
  EXPECT_TRUE(SortAs(kId, SortType::kDate));
  EXPECT_EQ(Names(), "1 2 4 3");
}

TEST_F(Sorting, StopsAtACellThatIsNoDate) {
  for (const char* cell : {"", "2001", "2001-13-01", "2001-02-32", "2001-01-01 24:00", "soon", "1-1-1-1-1-1-1"}) {
    Rows().Clear();
    Fill(kId, {"2001-01-02", "2001-01-01", cell});
    EXPECT_FALSE(SortAs(kId, SortType::kDate)) << cell;
    EXPECT_EQ(Names(), "1 2 3");
  }
}

TEST_F(Sorting, RefusesAColumnThatIsNotThere) {
  Fill({"b", "a"}, "--");
  EXPECT_FALSE(msSortListview(Rows(), sort_, 0, SortType::kText, collation_));
  EXPECT_FALSE(msSortListview(Rows(), sort_, 13, SortType::kText, collation_));
  EXPECT_EQ(Names(), "b a");
}

TEST_F(Sorting, TakesMarksSelectionAndFocusAlongAndIsNoChange) {
  Fill({"c", "a", "b"}, "x--");
  Rows().SetIcon(1, RowIcon::kRed);
  Rows().SetIcon(2, RowIcon::kMissing);
  Rows().SetGhosted(2, true);
  Rows().SetFocusedRow(1);
  Sort(kFileName);
  EXPECT_EQ(Names(), "a b c");
  EXPECT_EQ(Selection(), "--x");
  EXPECT_EQ(Rows().At(3).icon, RowIcon::kRed);
  EXPECT_EQ(Rows().At(1).icon, RowIcon::kMissing);
  EXPECT_TRUE(Rows().At(1).ghosted);
  EXPECT_EQ(Rows().FocusedRow(), 3);
  EXPECT_FALSE(document_.PlaylistChanged);
}

TEST_F(Sorting, BringsBackTheOriginalOrder) {
  Fill(kOriginalOrder, {"1", "2", "3", "10"});
  for (int row = 1; row <= 4; ++row) Rows().SetCell(row, kHiddenLen, std::to_string(row * 7 % 4));
  Sort(kTime);
  EXPECT_NE(Names(), "1 2 3 4");
  Sort(kOriginalOrder);
  EXPECT_EQ(Names(), "1 2 3 4");
}

}  // namespace
}  // namespace qublet

#include "playlist/row_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <numeric>
#include <random>

#include "playlist/paths/text.h"
#include "playlist/shuffle.h"
#include "support/row_texts.h"
#include "support/scripted_random.h"

namespace qublet {
namespace {

// Code points in their order, small letters for all: the same on every machine.
class PlainCollation : public Collation {
 public:
  std::string Key(std::string_view text) const override { return LowerCase(text); }
};

class RowOrderTest : public testing::Test {
 protected:
  RowStore& Rows() { return document_.ListView1; }
  std::string Names() const { return NamesOf(document_.ListView1); }
  std::string Selection() const { return SelectionOf(document_.ListView1); }

  // One row for each cell, named "1", "2", ...
  void Fill(Column column, std::initializer_list<std::string_view> cells) {
    std::vector<Row> rows;
    for (const std::string_view cell : cells) {
      rows.push_back(NamedRow(std::to_string(rows.size() + 1)));
      rows.back().cells[column] = cell;
    }
    Rows().Insert(1, std::move(rows));
  }
  // Named rows of which an "x" in `selection` selects one.
  void Fill(std::initializer_list<std::string_view> names, std::string_view selection) {
    Rows().Insert(1, NamedRows(names));
    Select(selection);
  }
  void Select(std::string_view selection) {
    Rows().SelectWhere([&](int row, const Row&) { return selection[static_cast<std::size_t>(row - 1)] == 'x'; });
  }
  // A click on a header.
  bool Sort(Column column) {
    const auto [lncol, lnType] = SortOfColumn(column + 1);
    return msSortListview(Rows(), sort_, lncol, lnType, collation_);
  }
  bool SortAs(Column column, SortType type) { return msSortListview(Rows(), sort_, column + 1, type, collation_); }
  std::string Cells(Column column) const { return CellsOf(document_.ListView1, column); }

  Document document_;
  ListSort sort_;
  PlainCollation collation_;
};

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

// The moves, step by step as they are described: one swap of two rows after the other.
class StepByStep {
 public:
  explicit StepByStep(RowStore& rows) : rows_(rows) {}

  void Up() {
    if (rows_.Count() == 0 || rows_.At(1).selected) return;
    for (int i = 2; i <= rows_.Count(); ++i) Move(i, i - 1);
  }
  void Down() {
    if (rows_.Count() == 0 || rows_.At(rows_.Count()).selected) return;
    for (int i = rows_.Count(); i >= 1; --i) Move(i, i + 1);
  }
  void Top() {
    int moved = 0;
    for (int i = 1, count = rows_.Count(); i <= count; ++i) {
      if (!rows_.At(i).selected) continue;
      rows_.Insert(++moved, std::vector<Row>(1));
      rows_.SwapRows(i + 1, moved);
      rows_.Remove(i + 1);
    }
  }
  void Bottom() {
    int moved = 0;
    for (int i = 1, count = rows_.Count(); i <= count; ++i) {
      if (i > count - moved || !rows_.At(i).selected) continue;
      ++moved;
      rows_.Insert(rows_.Count() + 1, std::vector<Row>(1));
      rows_.SwapRows(i, rows_.Count());
      rows_.Remove(i--);
    }
  }

 private:
  void Move(int from, int to) {
    if (!rows_.At(from).selected) return;
    rows_.SetSelected(from, false);
    rows_.SwapRows(from, to);
  }

  RowStore& rows_;
};

using Moving = RowOrderTest;

TEST_F(Moving, UpDoesNothingWhenTheFirstRowIsSelected) {
  Fill({"a", "b", "c"}, "x-x");
  MoveRowsUp(document_);
  EXPECT_EQ(Names(), "a b c");
  EXPECT_EQ(Selection(), "x-x");
  EXPECT_FALSE(document_.PlaylistChanged);
}

TEST_F(Moving, DownDoesNothingWhenTheLastRowIsSelected) {
  Fill({"a", "b", "c"}, "x-x");
  MoveRowsDown(document_);
  EXPECT_EQ(Names(), "a b c");
  EXPECT_FALSE(document_.PlaylistChanged);
}

TEST_F(Moving, UpMovesEachSelectedRowByOne) {
  Fill({"a", "b", "c", "d", "e"}, "-x-xx");
  MoveRowsUp(document_);
  EXPECT_EQ(Names(), "b a d e c");
  EXPECT_EQ(Selection(), "x-xx-");
  EXPECT_EQ(Rows().FocusedRow(), 4);
  EXPECT_TRUE(document_.PlaylistChanged);
}

TEST_F(Moving, DownMovesABlockAndKeepsItsOrder) {
  Fill({"a", "b", "c", "d"}, "-xx-");
  MoveRowsDown(document_);
  EXPECT_EQ(Names(), "a d b c");
  EXPECT_EQ(Selection(), "--xx");
  EXPECT_EQ(Rows().FocusedRow(), 3);
  EXPECT_TRUE(document_.PlaylistChanged);
}

TEST_F(Moving, ByOneLeavesAnEmptyListAndOneWithoutSelectionAlone) {
  MoveRowsUp(document_);
  MoveRowsDown(document_);
  Fill({"a", "b"}, "--");
  MoveRowsUp(document_);
  MoveRowsDown(document_);
  EXPECT_EQ(Names(), "a b");
  EXPECT_FALSE(document_.PlaylistChanged);
}

TEST_F(Moving, ToTheTopKeepsTheOrderAndTheSelection) {
  Fill({"a", "b", "c", "d", "e"}, "--x-x");
  MoveRowsToTop(Rows());
  EXPECT_EQ(Names(), "c e a b d");
  EXPECT_EQ(Selection(), "xx---");
  EXPECT_EQ(Rows().FocusedRow(), 2);
  EXPECT_FALSE(document_.PlaylistChanged);
}

TEST_F(Moving, ToTheBottomKeepsTheOrderAndTheSelection) {
  Fill({"a", "b", "c", "d", "e"}, "x-x--");
  MoveRowsToBottom(Rows());
  EXPECT_EQ(Names(), "b d e a c");
  EXPECT_EQ(Selection(), "---xx");
  EXPECT_EQ(Rows().FocusedRow(), 5);
  EXPECT_FALSE(document_.PlaylistChanged);
}

TEST_F(Moving, ToAnEndLeavesAListWithoutSelectionAlone) {
  Fill({"a", "b"}, "--");
  Rows().SetFocusedRow(1);
  MoveRowsToTop(Rows());
  MoveRowsToBottom(Rows());
  EXPECT_EQ(Names(), "a b");
  EXPECT_EQ(Rows().FocusedRow(), 1);
}

TEST_F(Moving, WorksInAFullList) {
  Rows().Insert(1, std::vector<Row>(RowStore::MaxRows));
  Rows().SetCell(RowStore::MaxRows, kFileName, "last");
  Rows().SetSelected(RowStore::MaxRows, true);
  MoveRowsToTop(Rows());
  EXPECT_EQ(Rows().At(1).cells[kFileName], "last");
  MoveRowsToBottom(Rows());
  EXPECT_EQ(Rows().At(RowStore::MaxRows).cells[kFileName], "last");
}

TEST_F(Moving, CarriesMarksAndMissingRowsAlong) {
  Fill({"a", "b"}, "-x");
  Rows().SetIcon(2, RowIcon::kGreen);
  Rows().SetIcon(1, RowIcon::kMissing);
  Rows().SetGhosted(1, true);
  MoveRowsUp(document_);
  EXPECT_EQ(Rows().At(1).icon, RowIcon::kGreen);
  EXPECT_EQ(Rows().At(2).icon, RowIcon::kMissing);
  EXPECT_TRUE(Rows().At(2).ghosted);
}

TEST_F(Moving, GivesWhatTheSingleStepsGiveForEverySelection) {
  constexpr int kRows = 6;
  using Move = void (*)(Document&);
  using Steps = void (StepByStep::*)();
  const std::array<std::pair<Move, Steps>, 4> moves{{
      {MoveRowsUp, &StepByStep::Up},
      {MoveRowsDown, &StepByStep::Down},
      {[](Document& document) { MoveRowsToTop(document.ListView1); }, &StepByStep::Top},
      {[](Document& document) { MoveRowsToBottom(document.ListView1); }, &StepByStep::Bottom},
  }};
  for (int selection = 0; selection < 1 << kRows; ++selection) {
    for (std::size_t i = 0; i < moves.size(); ++i) {
      Document ours;
      Document steps;
      for (Document* document : {&ours, &steps}) {
        document->ListView1.Insert(1, NamedRows({"a", "b", "c", "d", "e", "f"}));
        document->ListView1.SelectWhere([&](int row, const Row&) { return (selection >> (row - 1) & 1) != 0; });
      }
      moves[i].first(ours);
      StepByStep by_step(steps.ListView1);
      (by_step.*moves[i].second)();
      EXPECT_EQ(NamesOf(ours.ListView1), NamesOf(steps.ListView1)) << "move " << i << ", selection " << selection;
      EXPECT_EQ(SelectionOf(ours.ListView1), SelectionOf(steps.ListView1)) << "move " << i << ", " << selection;
      EXPECT_EQ(ours.ListView1.FocusedRow(), steps.ListView1.FocusedRow()) << "move " << i << ", " << selection;
    }
  }
}

// The shuffle as it is described, on a pool that is a plain list.
int PlainPass(const std::vector<int>& slots, std::vector<int>& rows, Random& random) {
  const int n = static_cast<int>(slots.size());
  std::vector<int> pool = slots;
  int pick = 0;
  int prev = 0;
  for (int j = 1; j <= n; ++j) {
    int tries = 0;
    random.Reseed();
    while (!(pick != 0 && pick != prev)) {
      pick = static_cast<int>(random.Draw() * n);
      if (++tries >= n * 10) break;
    }
    if (pick != 0) {
      prev = pool[static_cast<std::size_t>(pick - 1)];
      pool.erase(pool.begin() + (pick - 1));
      pool.push_back(prev);
    }
    pick = prev;
  }
  for (std::size_t k = 0; k < slots.size(); ++k) {
    std::swap(rows[static_cast<std::size_t>(slots[k] - 1)], rows[static_cast<std::size_t>(pool[k] - 1)]);
  }
  return pool.back();
}

class SeededRandom : public Random {
 public:
  explicit SeededRandom(unsigned seed) : engine_(seed) {}
  double Draw() override { return std::uniform_real_distribution<>()(engine_); }
  void Reseed() override {}

 private:
  std::mt19937 engine_;
};

std::vector<int> Numbers(int count) {
  std::vector<int> numbers(static_cast<std::size_t>(count));
  std::iota(numbers.begin(), numbers.end(), 1);
  return numbers;
}

TEST(ShuffleSelectionOnce, MovesTheRowsAsThePlainListDoes) {
  for (unsigned seed = 1; seed <= 300; ++seed) {
    std::mt19937 choose(seed);
    const std::vector<int> all = Numbers(2 + static_cast<int>(choose() % 400));
    std::vector<int> slots;
    for (const int row : all) {
      if (choose() % 3 != 0) slots.push_back(row);
    }
    if (slots.size() < 2) slots = {1, 2};
    std::vector<int> ours = all;
    std::vector<int> plain = all;
    SeededRandom our_random(seed);
    SeededRandom plain_random(seed);
    EXPECT_EQ(ShuffleSelectionOnce(slots, ours, our_random), PlainPass(slots, plain, plain_random)) << seed;
    EXPECT_EQ(ours, plain) << seed;
  }
}

TEST(ShuffleSelectionOnce, FollowsTheDrawsOfFourRows) {
  // Positions 2, 1, 3, 1 of the pool: 1 2 3 4, 1 3 4 2, 3 4 2 1, 3 4 1 2, 4 1 2 3. Then row 1 changes places with 4,
  // 2 with 1, 3 with 2, 4 with 3.
  ScriptedRandom random;
  random.draws = {0.5, 0.25, 0.75, 0.25};
  std::vector<int> rows = Numbers(4);
  EXPECT_EQ(ShuffleSelectionOnce({1, 2, 3, 4}, rows, random), 3);
  EXPECT_EQ(rows, (std::vector<int>{2, 3, 1, 4}));
}

TEST(ShuffleSelectionOnce, DrawsAgainForPositionZeroAndForTheNumberOfTheSlotMovedLast) {
  // The first item takes slot 2 by position 2; the second doesn't take position 0, nor 2, but 1.
  ScriptedRandom random;
  random.draws = {0.7, 0.0, 0.7, 0.4, 0.7};
  std::vector<int> rows = Numbers(3);
  ShuffleSelectionOnce({1, 2, 3}, rows, random);
  EXPECT_EQ(random.drawn, 5);
  EXPECT_EQ(random.reseeded, 3);
}

TEST(ShuffleSelectionOnce, LosesNoRowWhenEveryDrawIsZero) {
  ScriptedRandom random;
  std::vector<int> rows = Numbers(3);
  EXPECT_EQ(ShuffleSelectionOnce({1, 2, 3}, rows, random), 3);
  EXPECT_EQ(rows, Numbers(3)) << "the pool stays, so each row changes places with itself";
  EXPECT_EQ(random.drawn, 3 * 30);
}

TEST(ShuffleSelectionOnce, LosesNoRowWhenTheFirstTwoAreSelected) {
  for (unsigned seed = 1; seed <= 200; ++seed) {
    SeededRandom random(seed);
    std::vector<int> rows = Numbers(2);
    ShuffleSelectionOnce({1, 2}, rows, random);
    std::sort(rows.begin(), rows.end());
    EXPECT_EQ(rows, Numbers(2));
  }
}

TEST(ShuffleSelectionOnce, TakesADrawThatRoundsUpToTheCount) {
  ScriptedRandom random;
  random.otherwise = 1.0;
  std::vector<int> rows = Numbers(5);
  ShuffleSelectionOnce({1, 2, 3, 4, 5}, rows, random);
  std::sort(rows.begin(), rows.end());
  EXPECT_EQ(rows, Numbers(5));
}

using Shuffling = RowOrderTest;

TEST_F(Shuffling, ChangesNothingWithOneRowSelectedOrNone) {
  ScriptedRandom random;
  std::int16_t intensity = 1;
  for (const char* selection : {"-x-", "---"}) {
    Rows().Clear();
    Fill({"a", "b", "c"}, selection);
    ShuffleSelection(Rows(), intensity, random);
    EXPECT_EQ(Names(), "a b c");
    EXPECT_EQ(Selection(), selection);
  }
  EXPECT_EQ(random.drawn, 0);
}

TEST_F(Shuffling, MakesOnePassMoreThanTheIntensitySays) {
  for (const int passes : {1, 2, 10}) {
    ScriptedRandom random;
    random.otherwise = 0.5;
    Rows().Clear();
    Fill({"a", "b", "c", "d"}, "xxxx");
    auto intensity = static_cast<std::int16_t>(passes);
    ShuffleSelection(Rows(), intensity, random);
    EXPECT_EQ(random.reseeded, 4 * (passes + 1));
    EXPECT_EQ(intensity, passes);
  }
}

TEST_F(Shuffling, AtIntensityZeroStoresOneAndMakesTwoPasses) {
  ScriptedRandom random;
  random.otherwise = 0.5;
  Fill({"a", "b", "c", "d"}, "xxxx");
  std::int16_t intensity = 0;
  ShuffleSelection(Rows(), intensity, random);
  EXPECT_EQ(intensity, 1);
  EXPECT_EQ(random.reseeded, 8);
}

TEST_F(Shuffling, MovesOnlySelectedRowsAndLeavesTheSelectedPlacesAndTheChangeFlag) {
  for (unsigned seed = 1; seed <= 100; ++seed) {
    SeededRandom random(seed);
    Rows().Clear();
    Fill({"a", "b", "c", "d", "e", "f"}, "x-xx-x");
    std::int16_t intensity = 1;
    ShuffleSelection(Rows(), intensity, random);
    EXPECT_EQ(Selection(), "x-xx-x");
    EXPECT_EQ(Rows().At(2).cells[kFileName], "b");
    EXPECT_EQ(Rows().At(5).cells[kFileName], "e");
    std::string names = Names();
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, "     abcdef");
  }
  EXPECT_FALSE(document_.PlaylistChanged);
}

TEST_F(Shuffling, CarriesMarksAlongAndFocusesTheLastPartner) {
  ScriptedRandom random;
  random.draws = {0.5, 0.25, 0.75, 0.25};
  random.otherwise = 0;  // the second pass finds no position and leaves the rows alone
  Fill({"a", "b", "c", "d"}, "xxxx");
  Rows().SetIcon(1, RowIcon::kBlue);
  std::int16_t intensity = 1;
  ShuffleSelection(Rows(), intensity, random);
  EXPECT_EQ(Names(), "b c a d");
  EXPECT_EQ(Rows().At(3).icon, RowIcon::kBlue);
  EXPECT_EQ(Rows().FocusedRow(), 4);
}

TEST_F(Shuffling, PutsRowsIntoManyOrders) {
  SystemRandom random;
  std::vector<std::string> orders;
  for (int i = 0; i < 200; ++i) {
    Rows().Clear();
    Fill({"a", "b", "c", "d", "e"}, "xxxxx");
    std::int16_t intensity = 1;
    ShuffleSelection(Rows(), intensity, random);
    orders.push_back(Names());
  }
  std::sort(orders.begin(), orders.end());
  const auto unlike = std::unique(orders.begin(), orders.end()) - orders.begin();
  EXPECT_GT(unlike, 30);
}

}  // namespace
}  // namespace qublet

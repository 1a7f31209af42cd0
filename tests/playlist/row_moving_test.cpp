#include <array>

#include "playlist/row_order_test_base.h"

namespace qublet {
namespace {

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

}  // namespace
}  // namespace qublet

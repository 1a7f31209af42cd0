#include "playlist/row_store.h"

#include <gtest/gtest.h>

#include "support/row_texts.h"

namespace qublet {
namespace {

// Notes what it hears, a word or two each.
class RecordingListener : public RowListener {
 public:
  explicit RecordingListener(RowStore& rows) : rows_(rows) { rows.SetListener(this); }
  ~RecordingListener() override { rows_.SetListener(nullptr); }

  void CountChanged(int count) override { Note("count " + std::to_string(count)); }
  void RowsChanged(int first, int last) override { Note("changed " + Two(first, last)); }
  void FocusMoved() override { Note("focus " + std::to_string(rows_.FocusedRow())); }
  void ShowRow(int index) override { Note("show " + std::to_string(index)); }

  // What was heard since the last question, with ", " between.
  std::string Heard() { return std::exchange(heard_, ""); }

 private:
  static std::string Two(int one, int other) { return std::to_string(one) + " " + std::to_string(other); }
  void Note(const std::string& event) { heard_ += (heard_.empty() ? "" : ", ") + event; }

  RowStore& rows_;
  std::string heard_;
};

class RowStoreTest : public testing::Test {
 protected:
  RowStoreTest() {
    rows_.Insert(1, NamedRows({"a", "b", "c", "d"}));
    listener_.Heard();
  }
  std::string Names() const { return NamesOf(rows_); }
  std::string Heard() { return listener_.Heard(); }

  RowStore rows_;
  RecordingListener listener_{rows_};
};

TEST_F(RowStoreTest, HasOneListenerAndNeverSilentlyAnother) {
  RowStore rows;
  {
    const RecordingListener first(rows);
    EXPECT_THROW(RecordingListener second(rows), std::logic_error);
  }
  EXPECT_NO_THROW(RecordingListener third(rows));
}

TEST_F(RowStoreTest, InsertsBeforeARowAndTellsItOnce) {
  rows_.Insert(1, NamedRows({"1", "2"}));
  EXPECT_EQ(Names(), "1 2 a b c d");
  EXPECT_EQ(Heard(), "count 6, changed 1 4");
  rows_.Insert(4, NamedRows({"3"}));
  EXPECT_EQ(Names(), "1 2 a 3 b c d");
  rows_.Insert(8, NamedRows({"4", "5"}));
  EXPECT_EQ(Names(), "1 2 a 3 b c d 4 5");
  EXPECT_EQ(Heard(), "count 7, changed 4 6, count 9") << "what comes at the end changes no other row";
}

TEST_F(RowStoreTest, InsertsNothingInSilence) {
  rows_.Insert(5, {});
  EXPECT_EQ(Heard(), "");
}

TEST_F(RowStoreTest, RemovesARowAndTellsIt) {
  rows_.Remove(2);
  EXPECT_EQ(Names(), "a c d");
  rows_.Remove(3);
  EXPECT_EQ(Names(), "a c");
  EXPECT_EQ(Heard(), "count 3, changed 2 3, count 2");
}

TEST_F(RowStoreTest, LaysTheRowsInAnotherOrderAndTellsTheRangeThatMovedOnce) {
  rows_.SetSelected(3, true);
  rows_.SetIcon(3, RowIcon::kRed);
  rows_.SetFocusedRow(3);
  Heard();
  rows_.Reorder({1, 3, 2, 4});
  EXPECT_EQ(Names(), "a c b d");
  EXPECT_TRUE(rows_.At(2).selected);
  EXPECT_FALSE(rows_.At(3).selected);
  EXPECT_EQ(rows_.At(2).icon, RowIcon::kRed);
  EXPECT_EQ(rows_.FocusedRow(), 2);
  EXPECT_EQ(Heard(), "focus 2, changed 2 3");
}

TEST_F(RowStoreTest, TellsNothingOfAnOrderThatIsTheSame) {
  rows_.Reorder({1, 2, 3, 4});
  EXPECT_EQ(Names(), "a b c d");
  EXPECT_EQ(Heard(), "");
}

TEST_F(RowStoreTest, RefusesAnOrderThatNamesNotEachRowOnce) {
  for (const std::vector<int>& order : {std::vector<int>{1, 2, 3}, {1, 2, 3, 3}, {0, 1, 2, 3}, {2, 3, 4, 5}, {}}) {
    EXPECT_THROW(rows_.Reorder(order), Failure);
    EXPECT_EQ(Names(), "a b c d");
  }
  EXPECT_EQ(Heard(), "");
}

TEST_F(RowStoreTest, RemovesRowsByAQuestionAndKeepsTheOrderOfTheOthers) {
  rows_.SetSelected(1, true);
  rows_.SetSelected(3, true);
  Heard();
  EXPECT_EQ(rows_.RemoveIf([](const Row& row) { return row.selected; }), 2);
  EXPECT_EQ(Names(), "b d");
  EXPECT_EQ(Heard(), "count 2, changed 1 2");
  EXPECT_EQ(rows_.RemoveIf([](const Row&) { return true; }), 2);
  EXPECT_EQ(rows_.Count(), 0);
  EXPECT_EQ(Heard(), "count 0");
}

TEST_F(RowStoreTest, RemovesNoRowInSilence) {
  EXPECT_EQ(rows_.RemoveIf([](const Row&) { return false; }), 0);
  EXPECT_EQ(Names(), "a b c d");
  EXPECT_EQ(Heard(), "");
}

TEST_F(RowStoreTest, ClearsOnceAndThenInSilence) {
  rows_.SetFocusedRow(2);
  Heard();
  rows_.Clear();
  EXPECT_EQ(rows_.Count(), 0);
  EXPECT_EQ(rows_.FocusedRow(), 0);
  EXPECT_EQ(Heard(), "focus 0, count 0");
  rows_.Clear();
  EXPECT_EQ(Heard(), "");
}

TEST_F(RowStoreTest, TellsAChangedCellIconGhostAndSelection) {
  rows_.SetCell(1, kOriginalOrder, "7");
  rows_.SetIcon(2, RowIcon::kRed);
  rows_.SetGhosted(3, true);
  rows_.SetSelected(4, true);
  EXPECT_EQ(rows_.At(1).cells[kOriginalOrder], "7");
  EXPECT_EQ(rows_.At(2).icon, RowIcon::kRed);
  EXPECT_TRUE(rows_.At(3).ghosted);
  EXPECT_TRUE(rows_.At(4).selected);
  EXPECT_EQ(Heard(), "changed 1 1, changed 2 2, changed 3 3, changed 4 4");
}

TEST_F(RowStoreTest, SelectsByAQuestionAndTellsItOnce) {
  rows_.SelectWhere([](int index, const Row& row) { return index >= 2 && row.cells[kFileName] != "d"; });
  EXPECT_EQ(SelectionOf(rows_), "-xx-");
  EXPECT_EQ(rows_.SelectedCount(), 2);
  EXPECT_EQ(Heard(), "changed 2 3");
  rows_.SelectWhere([](int index, const Row&) { return index == 2 || index == 3; });
  EXPECT_EQ(Heard(), "");
}

TEST_F(RowStoreTest, TellsTheChangesOfABulkAtItsEndInOneGo) {
  {
    const RowStore::Bulk bulk(rows_);
    rows_.SetCell(3, kTime, "1:00");
    rows_.SetIcon(2, RowIcon::kBlue);
    rows_.SetFocusedRow(3);
    rows_.EnsureVisible(4);
    EXPECT_EQ(Heard(), "");
  }
  EXPECT_EQ(Heard(), "focus 4, changed 2 3, show 4");
}

TEST_F(RowStoreTest, TellsABulkThatInsertsAndRemovesByWhatIsThereAtItsEnd) {
  {
    const RowStore::Bulk bulk(rows_);
    rows_.SetSelected(4, true);
    rows_.Insert(1, NamedRows({"1"}));
    rows_.Remove(2);
    rows_.Insert(5, NamedRows({"2"}));
    rows_.Clear();
    rows_.Insert(1, NamedRows({"3", "4"}));
    EXPECT_EQ(Heard(), "");
  }
  EXPECT_EQ(Heard(), "count 2, changed 1 2");
  EXPECT_EQ(Names(), "3 4");
}

TEST_F(RowStoreTest, WaitsForTheOutermostOfNestedBulks) {
  {
    const RowStore::Bulk outer(rows_);
    {
      const RowStore::Bulk inner(rows_);
      rows_.SetSelected(1, true);
    }
    rows_.SelectWhere([](int index, const Row&) { return index == 4; });
    EXPECT_EQ(Heard(), "");
  }
  EXPECT_EQ(Heard(), "changed 1 4");
}

TEST_F(RowStoreTest, ForgetsARowToShowThatIsGoneAtTheEndOfABulk) {
  {
    const RowStore::Bulk bulk(rows_);
    rows_.EnsureVisible(4);
    rows_.Remove(1);
  }
  EXPECT_EQ(Heard(), "focus 3, count 3, changed 1 3");
}

TEST_F(RowStoreTest, StartsAfreshAfterABulk) {
  { const RowStore::Bulk empty(rows_); }
  EXPECT_EQ(Heard(), "");
  rows_.SelectWhere([](int index, const Row&) { return index == 1; });
  Heard();
  rows_.SelectWhere([](int index, const Row&) { return index == 1 || index == 4; });
  EXPECT_EQ(Heard(), "changed 4 4");
}

TEST_F(RowStoreTest, CountsEachChangeOfCellsAndOrderAndNoneOfLooksAlone) {
  std::uint64_t before = rows_.Changes();
  const auto counted = [&] { return std::exchange(before, rows_.Changes()) != rows_.Changes(); };
  rows_.Insert(2, NamedRows({"e", "f"}));
  EXPECT_TRUE(counted());
  rows_.Remove(1);
  EXPECT_TRUE(counted());
  rows_.RemoveIf([](const Row& row) { return row.cells[kFileName] == "f"; });
  EXPECT_TRUE(counted());
  rows_.Reorder({2, 1, 3, 4});
  EXPECT_TRUE(counted());
  rows_.SetCell(1, kFileName, "g");
  EXPECT_TRUE(counted());
  rows_.SwapRows(1, 2);
  EXPECT_TRUE(counted());

  rows_.RemoveIf([](const Row&) { return false; });
  rows_.Reorder({1, 2, 3, 4});
  rows_.SetSelected(1, true);
  rows_.SelectWhere([](int index, const Row&) { return index == 3; });
  rows_.SetIcon(1, RowIcon::kBlue);
  rows_.SetGhosted(1, true);
  rows_.EnsureVisible(3);
  EXPECT_FALSE(counted());
  rows_.Clear();
  EXPECT_TRUE(counted());
}

TEST_F(RowStoreTest, MovesTheFocusAndTellsItOnce) {
  EXPECT_EQ(rows_.FocusedRow(), 0);
  rows_.SetFocusedRow(3);
  rows_.SetFocusedRow(3);
  EXPECT_EQ(Heard(), "focus 3");
  rows_.SetFocusedRow(0);
  EXPECT_EQ(Heard(), "focus 0");
}

TEST_F(RowStoreTest, ShowsARowAndMakesItTheFocusedOne) {
  rows_.EnsureVisible(3);
  EXPECT_EQ(rows_.FocusedRow(), 3);
  EXPECT_EQ(Heard(), "focus 3, show 3");
  rows_.EnsureVisible(3);
  EXPECT_EQ(Heard(), "show 3");
}

TEST_F(RowStoreTest, KeepsTheFocusOnItsRowWhenOthersComeAndGo) {
  rows_.SetFocusedRow(2);
  rows_.Insert(3, NamedRows({"1"}));
  EXPECT_EQ(rows_.FocusedRow(), 2);
  rows_.Insert(2, NamedRows({"2", "3"}));
  EXPECT_EQ(rows_.FocusedRow(), 4);
  rows_.Insert(1, NamedRows({"4"}));
  EXPECT_EQ(rows_.FocusedRow(), 5);
  rows_.Remove(6);
  EXPECT_EQ(rows_.FocusedRow(), 5);
  rows_.Remove(1);
  EXPECT_EQ(rows_.FocusedRow(), 4);
  rows_.RemoveIf([](const Row& row) { return row.cells[kFileName] != "b" && row.cells[kFileName] != "d"; });
  EXPECT_EQ(rows_.At(rows_.FocusedRow()).cells[kFileName], "b");
}

TEST_F(RowStoreTest, GivesTheFocusOfARemovedRowToTheNextOneElseToTheLast) {
  rows_.SetFocusedRow(3);
  Heard();
  rows_.Remove(3);
  EXPECT_EQ(rows_.FocusedRow(), 3);
  EXPECT_EQ(Heard(), "focus 3, count 3, changed 3 3") << "another row has the focus now";
  rows_.Remove(3);
  EXPECT_EQ(rows_.FocusedRow(), 2);
  EXPECT_EQ(Heard(), "focus 2, count 2") << "the focus leaves a row before it goes";
  rows_.Remove(1);
  rows_.Remove(1);
  EXPECT_EQ(rows_.FocusedRow(), 0);
}

TEST_F(RowStoreTest, GivesTheFocusToTheNextRowThatStaysWhenManyGo) {
  rows_.SetFocusedRow(2);
  rows_.RemoveIf([](const Row& row) { return row.cells[kFileName] == "b" || row.cells[kFileName] == "c"; });
  EXPECT_EQ(rows_.At(rows_.FocusedRow()).cells[kFileName], "d");
  rows_.RemoveIf([](const Row& row) { return row.cells[kFileName] == "d"; });
  EXPECT_EQ(rows_.At(rows_.FocusedRow()).cells[kFileName], "a");
}

Row MissingRow() {
  Row row;
  for (std::size_t i = 0; i < row.cells.size(); ++i) row.cells[i] = "gone" + std::to_string(i);
  row.icon = RowIcon::kMissing;
  row.ghosted = true;
  row.key = "key";
  row.tag = "tag";
  return row;
}

TEST_F(RowStoreTest, SwapsAllThatTwoRowsHoldButTheirSelection) {
  rows_.Insert(1, {MissingRow()});
  rows_.SetCell(4, kPath, "c:\\");
  rows_.SetSelected(1, true);
  Heard();
  rows_.SwapRows(1, 4);
  const Row& swapped = rows_.At(4);
  EXPECT_EQ(swapped.cells, MissingRow().cells);
  EXPECT_EQ(swapped.icon, RowIcon::kMissing);
  EXPECT_TRUE(swapped.ghosted);
  EXPECT_EQ(swapped.key, "key");
  EXPECT_EQ(swapped.tag, "tag");
  const Row& other = rows_.At(1);
  EXPECT_EQ(other.FullPath(), "c:\\c");
  EXPECT_EQ(other.icon, RowIcon::kNormal);
  EXPECT_FALSE(other.ghosted);
  EXPECT_EQ(other.key + other.tag, "");
  EXPECT_EQ(SelectionOf(rows_), "x--x-") << "the caller deals with the first row's selection";
  EXPECT_EQ(rows_.FocusedRow(), 4);
  EXPECT_EQ(Heard(), "focus 4, changed 1 4, show 4");
}

TEST_F(RowStoreTest, SwapsUpwardsAndWithItself) {
  rows_.SwapRows(3, 2);
  EXPECT_EQ(Names(), "a c b d");
  EXPECT_EQ(SelectionOf(rows_), "-x--");
  rows_.SwapRows(4, 4);
  EXPECT_EQ(Names(), "a c b d");
  EXPECT_EQ(SelectionOf(rows_), "-x-x");
}

TEST_F(RowStoreTest, RefusesEveryIndexOutOfRangeAndChangesNothing) {
  rows_.SetFocusedRow(1);
  Heard();
  for (const int index : {-1, 0, 5, 32768}) {
    EXPECT_THROW(rows_.At(index), Failure) << index;
    EXPECT_THROW(rows_.Remove(index), Failure) << index;
    EXPECT_THROW(rows_.SetCell(index, kTime, "x"), Failure) << index;
    EXPECT_THROW(rows_.SetIcon(index, RowIcon::kBlue), Failure) << index;
    EXPECT_THROW(rows_.SetGhosted(index, true), Failure) << index;
    EXPECT_THROW(rows_.SetSelected(index, true), Failure) << index;
    EXPECT_THROW(rows_.EnsureVisible(index), Failure) << index;
    EXPECT_THROW(rows_.SwapRows(index, 1), Failure) << index;
    EXPECT_THROW(rows_.SwapRows(1, index), Failure) << index;
  }
  for (const int index : {-1, 0, 6}) {
    EXPECT_THROW(rows_.Insert(index, NamedRows({"x"})), Failure) << index;
    EXPECT_THROW(rows_.Insert(index, {}), Failure) << index;
  }
  EXPECT_THROW(rows_.SetFocusedRow(5), Failure);
  EXPECT_THROW(rows_.SetFocusedRow(-1), Failure);
  EXPECT_THROW(rows_.SetCell(1, -1, "x"), Failure);
  EXPECT_THROW(rows_.SetCell(1, kColumnCount, "x"), Failure);
  EXPECT_EQ(Names(), "a b c d");
  EXPECT_EQ(rows_.FocusedRow(), 1);
  EXPECT_EQ(Heard(), "");
}

TEST_F(RowStoreTest, EndsAtRow32767) {
  rows_.Insert(5, std::vector<Row>(RowStore::MaxRows - 4));
  EXPECT_EQ(rows_.Count(), 32767);
  EXPECT_EQ(Heard(), "count 32767");
  EXPECT_THROW(rows_.Insert(1, NamedRows({"x"})), Failure);
  rows_.Remove(32767);
  EXPECT_THROW(rows_.Insert(1, NamedRows({"x", "y"})), Failure) << "all or none";
  EXPECT_EQ(rows_.Count(), 32766);
  EXPECT_EQ(rows_.At(1).cells[kFileName], "a");
  rows_.Insert(1, NamedRows({"x"}));
  EXPECT_EQ(rows_.Count(), 32767);
}

TEST(RowStore, WorksWithNobodyListening) {
  RowStore rows;
  rows.Insert(1, NamedRows({"a", "b"}));
  {
    const RowStore::Bulk bulk(rows);
    rows.SwapRows(1, 2);
    rows.Remove(2);
  }
  rows.EnsureVisible(1);
  rows.Clear();
  EXPECT_EQ(rows.Count(), 0);
}

TEST(Row, GivesItsPathAsFolderAndNameWithNothingBetween) {
  Row row = NamedRow("a.mp3");
  row.cells[kPath] = "c:\\m\\";
  EXPECT_EQ(row.FullPath(), "c:\\m\\a.mp3");
}

}  // namespace
}  // namespace qublet

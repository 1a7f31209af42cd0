#include <gtest/gtest.h>

#include <random>

#include "playlist/row_store.h"
#include "support/row_texts.h"

namespace qublet {
namespace {

// Follows the rows by what it hears alone, as a view does.
class MirrorListener : public RowListener {
 public:
  explicit MirrorListener(RowStore& rows) : rows_(rows) { rows.SetListener(this); }
  ~MirrorListener() override { rows_.SetListener(nullptr); }

  void CountChanged(int count) override {
    EXPECT_EQ(count, rows_.Count());
    EXPECT_NE(count, static_cast<int>(mirror_.size()));
    const int before = static_cast<int>(mirror_.size());
    mirror_.resize(static_cast<std::size_t>(count));
    for (int i = before + 1; i <= count; ++i) Copy(i);
    EXPECT_LE(focus_, count);
  }
  void RowsChanged(int first, int last) override {
    for (int i = first; i <= last; ++i) Copy(i);
  }
  void FocusMoved() override {
    focus_ = rows_.FocusedRow();
    EXPECT_LE(focus_, static_cast<int>(mirror_.size()));
  }
  void ShowRow(int index) override { EXPECT_LE(index, rows_.Count()); }

  void ExpectTrue() const {
    ASSERT_EQ(static_cast<int>(mirror_.size()), rows_.Count());
    EXPECT_EQ(focus_, rows_.FocusedRow());
    for (int i = 1; i <= rows_.Count(); ++i) {
      const Row& seen = mirror_[static_cast<std::size_t>(i - 1)];
      EXPECT_EQ(seen.cells, rows_.At(i).cells);
      EXPECT_EQ(seen.selected, rows_.At(i).selected);
      EXPECT_EQ(seen.icon, rows_.At(i).icon);
    }
  }

 private:
  void Copy(int index) { mirror_.at(static_cast<std::size_t>(index - 1)) = rows_.At(index); }

  RowStore& rows_;
  std::vector<Row> mirror_;
  int focus_ = 0;
};

class RandomChanges {
 public:
  explicit RandomChanges(RowStore& rows) : rows_(rows) {}

  void One() {
    switch (Below(10)) {
      case 0:
      case 1:
        return rows_.Insert(Below(rows_.Count() + 1) + 1, std::vector<Row>(1 + Below(4), NamedRow(NextName())));
      case 2:
        return void(rows_.RemoveIf([&](const Row&) { return rows_.Count() > 40; }));
      case 3:
        return rows_.SelectWhere([&](int, const Row&) { return Below(2) == 0; });
      case 4:
        return void(rows_.RemoveIf([](const Row& row) { return row.selected && row.icon == RowIcon::kRed; }));
      default:
        if (rows_.Count() > 0) ToOneRow(Below(rows_.Count()) + 1);
    }
  }

  int Below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }

 private:
  void ToOneRow(int row) {
    switch (Below(6)) {
      case 0:
        return rows_.Remove(row);
      case 1:
        return rows_.SetCell(row, kTime, NextName());
      case 2:
        return rows_.SetIcon(row, RowIcon::kRed);
      case 3:
        return rows_.SwapRows(row, Below(rows_.Count()) + 1);
      case 4:
        return rows_.SetFocusedRow(row);
      default:
        return rows_.EnsureVisible(row);
    }
  }
  std::string NextName() { return std::to_string(++names_); }

  RowStore& rows_;
  std::mt19937 random_{20};
  int names_ = 0;
};

TEST(RowStore, CanBeFollowedByWhatItsListenerHears) {
  RowStore rows;
  const MirrorListener mirror(rows);
  RandomChanges changes(rows);
  for (int i = 0; i < 3000 && !testing::Test::HasFailure(); ++i) {
    {
      const RowStore::Bulk bulk(rows);
      for (int j = changes.Below(4); j > 0; --j) changes.One();
    }
    changes.One();
    mirror.ExpectTrue();
  }
}

}  // namespace
}  // namespace qublet

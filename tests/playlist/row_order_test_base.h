#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "playlist/paths/text.h"
#include "playlist/row_order.h"
#include "support/row_texts.h"

namespace qublet {

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

}  // namespace qublet

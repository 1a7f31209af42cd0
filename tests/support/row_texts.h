#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "playlist/row_store.h"

namespace qublet {

// A row with this name and nothing else.
inline Row NamedRow(std::string_view name) {
  Row row;
  row.cells[kFileName] = name;
  return row;
}

inline std::vector<Row> NamedRows(std::initializer_list<std::string_view> names) {
  std::vector<Row> rows;
  for (const std::string_view name : names) rows.push_back(NamedRow(name));
  return rows;
}

// One cell of every row, with a blank between.
inline std::string CellsOf(const RowStore& rows, Column column) {
  std::string cells;
  for (int i = 1; i <= rows.Count(); ++i) cells += (i > 1 ? " " : "") + rows.At(i).cells[column];
  return cells;
}

inline std::string NamesOf(const RowStore& rows) {
  return CellsOf(rows, kFileName);
}

// A letter a row: "x" selected, "-" not.
inline std::string SelectionOf(const RowStore& rows) {
  std::string letters;
  for (int i = 1; i <= rows.Count(); ++i) letters += rows.At(i).selected ? 'x' : '-';
  return letters;
}

}  // namespace qublet

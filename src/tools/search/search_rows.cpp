#include "tools/search/search_rows.h"

#include <algorithm>

#include "tools/search/found_text.h"

namespace qublet {

SearchOptions::SearchOptions() {
  std::ranges::transform(kSearchColumns, columns.begin(), &SearchColumn::starts_ticked);
}

RowNumbers SearchRows(const RowStore& rows, std::string_view text, const SearchOptions& options, bool allRows) {
  const FoundText wanted(text, options.Mcasesensitive);
  std::vector<Column> columns;
  for (std::size_t i = 0; i < kSearchColumns.size(); ++i) {
    if (options.columns[i]) columns.push_back(kSearchColumns[i].column);
  }
  RowNumbers found;
  for (int i = 1; i <= rows.Count(); ++i) {
    rows.ExpectPaths(i);
    const Row& row = rows.At(i);
    const auto holds = [&](Column column) { return wanted.IsIn(row.cells[static_cast<std::size_t>(column)]); };
    if ((allRows || row.selected) && std::ranges::any_of(columns, holds))
      found.push_back(static_cast<std::int16_t>(i));
  }
  return found;
}

}  // namespace qublet

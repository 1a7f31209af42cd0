#pragma once

#include <cstdint>

#include "platform/collation.h"
#include "platform/random.h"
#include "playlist/document.h"

namespace qublet {

// The order of the rows: sorts, moves, shuffles. Whole rows move, with mark, icon and selected state; no cell
// changes.

// What the list keeps between sorts, as long as the program runs.
struct ListSort {
  int SortKey = -1;   // the column that was sorted by last, from 0; none before the first sort
  int SortOrder = 0;  // 0 ascending, 1 descending
};

enum class SortType { kNumber = 0, kText = 1, kDate = 2 };

// How the rows are to be sorted when the header of a column is clicked; columns count from 1.
struct ColumnSort {
  int lncol = 1;
  SortType lnType = SortType::kText;
};
ColumnSort SortOfColumn(int clicked);

// Sorts by column `lncol`, counted from 1: ascending, or the other way round when this was the last sort's column.
// Rows that are alike keep their order either way. Texts go by `collation`, by their bytes where that sees no
// difference; numbers by their whole part, an empty cell as 0; dates ("2001/02/03", "2001-02-03 04:05:06") by time.
// False, with nothing changed, when a cell isn't what `lnType` says.
bool msSortListview(RowStore& lsv, ListSort& sort, int lncol, SortType lnType, const Collation& collation);

// Every selected row goes up or down by one; none when the foremost is at the end already. The last one moved gets
// the focus and is shown, and the list counts as changed if any moved.
void MoveRowsUp(Document& document);
void MoveRowsDown(Document& document);

// The selected rows go to the top or the bottom in their order; the last of them gets the focus. The list doesn't
// count as changed.
void MoveRowsToTop(RowStore& rows);
void MoveRowsToBottom(RowStore& rows);

// "Shuffle Selection": `SHUFFLEINT` + 1 passes; a setting of 0 becomes 1. The selected rows change places among
// themselves. The list doesn't count as changed.
void ShuffleSelection(RowStore& rows, std::int16_t& SHUFFLEINT, Random& random);

}  // namespace qublet

#pragma once

#include <vector>

#include "playlist/paths/collections.h"
#include "playlist/row_store.h"

namespace qublet {

// What rows are compared by. The numbers are those of the list `DupBase`.
enum class DuplicateKey { kName = 0, kFolder = 1, kPath = 2 };

// A key a row, in the order of the rows; in lower case when case isn't to count.
Collection BuildDuplicateKeys(const RowStore& rows, DuplicateKey compareMode, bool fold_case);

// The rows, counted from 1 and ascending, whose key repeats the one that is sorted before it; with `includeFirst` the
// first row of each such run too. The sort ignores case, so keys that differ in case alone may part equal ones, and
// the first row of a run is the uppermost. An empty key that is sorted first counts as a repetition.
std::vector<int> FindDuplicates(const Collection& DuplicateKeys, bool includeFirst);

}  // namespace qublet

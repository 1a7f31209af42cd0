#pragma once

#include "playlist/paths/collections.h"
#include "playlist/row_store.h"

namespace qublet {

enum class WhichRows { kAll, kSelected };

// Appends the full paths of those rows, in their order.
void AppendPaths(const RowStore& rows, WhichRows which, Collection& paths);
Collection PathsOf(const RowStore& rows, WhichRows which);

}  // namespace qublet

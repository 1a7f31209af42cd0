#pragma once

#include <string>
#include <vector>

#include "platform/file_system.h"
#include "playlist/paths/collections.h"
#include "playlist/row_store.h"

namespace qublet {

// The selected rows as the tag editor takes them.
struct SelectedFiles {
  Collection SelectedPaths;
  std::vector<int> SelectedIndexes;  // of the same rows, same order
  std::string SelectedExtension;     // which all of them share, in lower case with its dot; "" for none
  int FirstSelected = 0;             // rows, also of a selection that can't be used
  int LastSelected = 0;
};

// True when the selection may be updated: MP3 files that are there, nothing else. A selection with a missing file, or
// with files of several kinds, holds no paths.
bool BuildSelection(const RowStore& rows, const FileSystem& files, SelectedFiles& selection);

}  // namespace qublet

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "playlist/paths/collections.h"
#include "playlist/row_store.h"

namespace qublet {

// Rows whose file isn't there, in the order of the list.
struct MissingItems {
  std::vector<int> MissingRows;  // numbers from 1
  Collection MissingPaths;       // full paths, parallel to them
};

// A row without a drive counts as missing wherever its file is. `alive` is called now and then. Throws nothing.
MissingItems FindMissingItems(const RowStore& rows, const FileSystem& files, const std::function<void()>& alive);

// "2 of them lie on places that aren't there now: e:, /mnt/nas"; "" when none does.
std::string AbsentPlacesOf(const Collection& MissingPaths, const FileSystem& files,
                           const std::function<void()>& alive);

// Takes these rows out of the list, which counts as changed then.
void RemoveRows(RowStore& rows, const std::vector<int>& numbers);

}  // namespace qublet

#pragma once

#include <string>

#include "playlist/paths/collections.h"
#include "playlist/row_store.h"

namespace qublet {

// What the program works on: the rows and what belongs to them. One lives as long as the program and is handed to
// whoever needs it.
struct Document {
  RowStore ListView1;

  // The paths that a batch of rows is made of, or that are handed to another program; without meaning between
  // commands. A rule that only looks at the rows' paths takes PathsOf (row_paths.h).
  Collection FileArray;

  std::string CurrentPlaylist;  // normalised path of the open file, "" for a list without one
  bool PlaylistChanged = false;

  std::string WorkFolder;  // folder or file last picked by "&Add Item"
  Collection RecentFiles;  // oldest first
  Collection TempFiles;    // deleted at exit
  std::string WinampBookmarkFile;
};

inline void DestroyFileArray(Document& document) {
  document.FileArray.clear();
}

}  // namespace qublet

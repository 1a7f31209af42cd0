#pragma once

#include <string>

#include "playlist/paths/collections.h"
#include "playlist/row_store.h"

namespace qublet {

// What the program works on: the rows and what belongs to them. One lives as long as the program and is handed to
// whoever needs it.
struct Document {
  RowStore ListView1;

  // Scratch list of full paths, the hand-over between the list and the tools; without meaning between commands.
  Collection FileArray;

  std::string CurrentPlaylist;  // normalised path of the open file, "" for a list without one
  bool PlaylistChanged = false;
  bool Dropping = false;  // names dropped at once come in: selecting rows doesn't refresh the window

  std::string WorkFolder;  // folder or file last picked by "&Add Item"
  Collection RecentFiles;  // oldest first
  Collection TempFiles;    // deleted at exit
  std::string WinampBookmarkFile;
};

inline void DestroyFileArray(Document& document) {
  document.FileArray.clear();
}

}  // namespace qublet

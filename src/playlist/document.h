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
  bool Recovered = false;  // the rows came from a recovery list, which a save or a new list puts an end to

  // The list is in a file of the user's now, or another one begins.
  void MarkStored() { PlaylistChanged = Recovered = false; }
  // What would be lost with this process.
  bool StoredNowhere() const { return (PlaylistChanged || Recovered) && ListView1.Count() > 0; }

  std::string WorkFolder;  // folder or file last picked by "&Add Item"
  Collection RecentFiles;  // oldest first
  Collection TempFiles;    // deleted at exit
  std::string WinampBookmarkFile;
};

inline void DestroyFileArray(Document& document) {
  document.FileArray.clear();
}

}  // namespace qublet

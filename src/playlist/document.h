#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "playlist/paths/collections.h"
#include "playlist/playlist_form.h"
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
  // That it came in and is saved back in, where that isn't the one of a new file.
  std::optional<PlaylistForm> CurrentForm;
  bool PlaylistChanged = false;
  // Whether the rows came from a recovery list and are stored nowhere since. One that gave way to another list
  // without a question isn't done with: `kLeft` says so until its file has been let go.
  enum class Recovery { kNone, kHere, kLeft };
  Recovery Recovered = Recovery::kNone;

  // What would be lost with this process.
  bool StoredNowhere() const { return (PlaylistChanged || Recovered == Recovery::kHere) && ListView1.Count() > 0; }
  // The list is in a file of the user's now, or isn't wanted any more.
  void MarkStored() {
    PlaylistChanged = false;
    Recovered = Recovery::kNone;
  }
  // The list goes, and another one takes its place. What was to be asked has been. Gives the rows that went.
  std::vector<std::unique_ptr<Row>> GiveWay() {
    const bool unasked = Recovered == Recovery::kHere && !PlaylistChanged && ListView1.Count() > 0;
    MarkStored();
    if (unasked) Recovered = Recovery::kLeft;
    return ListView1.TakeAll();
  }

  std::string WorkFolder;  // folder or file last picked by "&Add Item"
  Collection RecentFiles;  // oldest first
  Collection TempFiles;    // deleted at exit
  std::string WinampBookmarkFile;
};

inline void DestroyFileArray(Document& document) {
  document.FileArray.clear();
}

}  // namespace qublet

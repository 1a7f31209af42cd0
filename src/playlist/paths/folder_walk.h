#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/feedback.h"
#include "platform/file_system.h"
#include "playlist/paths/collections.h"

namespace qublet {

// What counts as an audio file: "*.mp3", "*.wav", "*.ogg", "*.wma".
const Collection& FileFilters();
// What counts as a playlist: "*.m3u", "*.m3u8", and "*.bm", a bookmark file, which reads alike.
const Collection& PlaylistFilters();

// Where a walk ends: what lies further away is counted and left out.
struct WalkBounds {
  static constexpr std::size_t kMostPathBytes = std::size_t{32} << 10;  // of a path in drive form
  static constexpr std::size_t kMostDepth = 4096;                       // folders below the first one
};

// What a walk didn't get at.
struct WalkGaps {
  std::size_t unlisted = 0;  // folders that can't be listed
  std::size_t too_far = 0;   // files and folders beyond WalkBounds

  WalkGaps& operator+=(const WalkGaps& more) {
    unlisted += more.unlisted;
    too_far += more.too_far;
    return *this;
  }
};

// Listing the files of folders. A filter is a pattern of "*" and "?", which fits names that aren't hidden whatever
// their case, or a plain name, found as the file system finds it; both may have folders in front ("music\a.mp3").
// Names come in ascending order ignoring case. Nothing is thrown but WalkFolder's want of memory; a folder that
// can't be read gives nothing and is only counted.

// Appends a path for each file in `folder` that fits `filter`: `folder` + name when the filter is one of FileFilters
// or "*.*". Any other filter gives `folder` + filter itself, once for each file: the path for a plain name, the
// pattern's text over and over for a foreign pattern.
void ListFolderFiles(const FileSystem& files, const std::string& folder, const std::string& filter,
                     Collection& results);

// ListFolderFiles of `folder` for each filter in turn, then, with `Recurse`, the same for each subfolder with all
// below it before the next. Hidden subfolders are left out, and so is a folder that is among its own parents or has
// been reached in eight other ways. The activity text follows the folders; `Quiet` silences it for the first level
// only. `folder_done`, if there is one, is called when what a folder gives stands in `results`. A walk that the user
// stops ends behind the present folder.
WalkGaps WalkFolder(const FileSystem& files, Feedback& feedback, const std::string& folder, const Collection& filters,
                    Collection& results, bool Recurse, bool Quiet, const std::function<void()>& folder_done = {});

// A file that bears a wanted name.
struct FoundName {
  std::size_t name;  // place among the wanted names, from 0
  std::string path;
};

// One search for files over several folders, drives above all: in each it is a WalkFolder with all below, shown from
// the first level on. The wanted names may have folders in front, and "*" and "?" in them stand for themselves. A
// folder that two ways lead to gives its files under both, and is read from disk once.
class FolderSearch {
 public:
  FolderSearch(const FileSystem& files, Feedback& feedback, const Collection& names);
  ~FolderSearch();
  FolderSearch(const FolderSearch&) = delete;
  FolderSearch& operator=(const FolderSearch&) = delete;

  // Appends what is found below `folder`, until the user stops the search. Throws nothing.
  WalkGaps Walk(const std::string& folder, std::vector<FoundName>& results);

  // A file met on the way that differs from that name only in letter case or in how accents are written, the first
  // one; "" when there was none.
  const std::string& SimilarTo(std::size_t name) const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace qublet

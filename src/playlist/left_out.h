#pragma once

#include <cstddef>
#include <string>

#include "playlist/paths/folder_walk.h"

namespace qublet {

// What of the folders and playlists that were named didn't come into the list.
struct LeftOut {
  WalkGaps walk;
  std::size_t long_lines = 0;     // of playlists: beyond PlaylistBounds::kMostLineBytes
  std::size_t further_lines = 0;  // of playlists: those that there was no room for

  // Whether playlists hold more lines than came in.
  bool OfPlaylists() const { return further_lines > 0 || long_lines > 0; }

  LeftOut& operator+=(const LeftOut& more) {
    walk += more.walk;
    long_lines += more.long_lines;
    further_lines += more.further_lines;
    return *this;
  }
};

// Two parts of one remark, either of which may be "".
std::string JoinedRemarks(const std::string& first, const std::string& second);
// "1 folder can't be listed; 2 paths are too long"; "" for none.
std::string GapsText(const WalkGaps& gaps);
// "2 lines are longer than 32 KiB and left out"; "" for none.
std::string LongLinesText(std::size_t lines);

}  // namespace qublet

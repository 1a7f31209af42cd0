#pragma once

#include <set>
#include <string>

#include "playlist/playlist_lines.h"

namespace qublet {

// Which lines of a playlist may be looked for. To look for a file on a server is to ask that server, and to tell it
// who asks; so a playlist from anywhere gets that done by none that it doesn't lie on itself. Safe to use from
// several threads.
class ServerLines {
 public:
  ServerLines(const FileSystem& files, const PlaylistLines& playlist);

  // False for a path on another server than the playlist's.
  bool MayBeLookedFor(const std::string& path) const;

 private:
  std::set<std::string> own_;
};

}  // namespace qublet

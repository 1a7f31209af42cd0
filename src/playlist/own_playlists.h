#pragma once

#include <string>

#include "platform/file_system.h"
#include "playlist/paths/collections.h"

namespace qublet {

// The program's own playlists; `program_folder` is in drive form without a trailing "\".

// The list of the last session.
inline std::string LastPlaylist(const std::string& program_folder) {
  return program_folder + "\\last.m3u";
}
// What is to be played next, and the file that other programs are handed.
inline std::string TempPlaylist(const std::string& program_folder) {
  return program_folder + "\\tmp.m3u";
}

// Appends the paths of a playlist that this program wrote for itself: each line that is a full path or an address is
// one, once, as it stands, up to the room of a list. Given up when the file can't be read or holds none.
Outcome ReadOwnPlaylist(const FileSystem& files, const std::string& path, Collection& paths);

}  // namespace qublet

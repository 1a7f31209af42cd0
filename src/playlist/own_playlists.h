#pragma once

#include <string>

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

}  // namespace qublet

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/file_system.h"

namespace qublet {

// How a playlist is laid out.
struct PlaylistForm {
  bool native = false;  // this system's own paths and line ends, else drive form and CR LF
  bool utf8 = false;    // else the code page where every line fits
  bool mark = false;    // a byte-order mark stands in front
  bool operator==(const PlaylistForm&) const = default;
};

// The form of a new playlist of this name.
PlaylistForm NewForm(std::string_view path);

// The form that a playlist with this content came in and goes back in, where that isn't the one of a new playlist: a
// plain one of a player of this system, whose paths have no drives here. A "/" in at least one line tells it, unless
// a line has a drive, a "\" or CR LF; addresses don't count. `content` is as PlaylistLines has it.
std::optional<PlaylistForm> FormToKeep(const FileSystem& files, const std::string& path, std::string_view content);

}  // namespace qublet

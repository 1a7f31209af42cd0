#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"
#include "platform/language_code_page.h"
#include "playlist/paths/collections.h"

namespace qublet {

// What has been read of a playlist: its lines that name audio files, as they stand there.
struct PlaylistLines {
  PlaylistLines() = default;
  PlaylistLines(const PlaylistLines&) = delete;  // the lines are views of the content
  PlaylistLines& operator=(const PlaylistLines&) = delete;

  std::string folder;         // that relative lines are read against: drive form, with its "\"
  std::string linked_folder;  // of the file that the playlist is a link to; "" where it is none
  bool native = false;        // the paths are in this system's own form (".m3u8")
  std::string content;        // without a mark; what was UTF-16 is UTF-8
  std::vector<std::string_view> lines;
  // Lines that aren't among these, though they are neither empty nor comments.
  std::size_t other_lines = 0;    // name no audio file
  std::size_t long_lines = 0;     // beyond PlaylistBounds::kMostLineBytes
  std::size_t further_lines = 0;  // behind the last one that PlaylistBounds let in; counted as the others would be
};

// Reads a playlist and appends each line's path to `paths`: as many as there are lines, which end at PlaylistBounds.
// Nothing is looked for on the disk. Given up when the file can't be read or names no audio file.
Outcome ReadPlaylist(const FileSystem& files, const std::string& path, PlaylistLines& playlist, Collection& paths);

// The same of content in memory, for a playlist whose folders and form are given already.
void ReadPlaylistBytes(const FileSystem& files, std::string bytes, PlaylistLines& playlist, Collection& paths);

// What a line says, as text: UTF-8 where it is valid, else of the user's code page.
std::string LineText(std::string_view bytes, const LanguageCodePage& page);
// What an address says that names a file of this computer or of another ("\\host\share\a.mp3"); nothing for any other
// text.
std::optional<std::string> PathOfAddress(const FileSystem& files, std::string_view address,
                                         const LanguageCodePage& page);
// Whether paths have drives and backslashes in this system's own form too.
bool OwnFormHasDrives(const FileSystem& files);
// A path with a drive or a server in front, with "/" and "\" alike as separators, ".", ".." and what is empty between
// them resolved as text.
std::string PlainDrivePath(std::string_view path);

}  // namespace qublet

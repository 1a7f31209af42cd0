#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/file_system.h"
#include "playlist/paths/collections.h"
#include "playlist/paths/text_writer.h"

namespace qublet {

// Playlist files: plain lines of paths. ".m3u" is code page text with CR LF ends and paths in drive form; ".m3u8" is
// UTF-8 with this system's own paths and line ends, so that every player here can open it.

// Whether an extension (lower case, with its dot) is among PlaylistFilters.
bool IsPlaylistExtension(std::string_view extension);
// Whether a playlist of this name is in this system's own form.
bool IsNativePlaylist(std::string_view path);

// Appends the lines of a playlist that name audio files: empty lines and lines that begin with "#" are skipped, and a
// line is kept once for each extension of FileFilters that it holds anywhere, in any case. A drive letter becomes
// lower case; a path in this system's own form becomes one in drive form, and an address ("http://...") stays what it
// is. Given up when the file can't be read or names no audio file.
Outcome ReadPlaylistLines(const FileSystem& files, const std::string& path, Collection& lines);

// The same on a playlist's content already in memory. `native` says that the paths are in this system's form.
bool ReadPlaylistText(const FileSystem& files, std::string_view bytes, bool native, Collection& lines);

// A playlist file put together item by item, in the form that its extension asks for; with `Relative` the playlist's
// own folder and its "\" are cut from every line. What would be misread as a relative line keeps its full path, and
// what this system can't say in its own form (a drive it doesn't have, an end of line in a name) its drive form.
class PlaylistText {
 public:
  PlaylistText(const FileSystem& files, const std::string& path, bool Relative);

  // Appends an item. The two parts of its path come apart, as rows hold them: most lines need no joined text.
  void Add(const std::string& folder, const std::string& name);
  // Replaces the file by what was added; to be called once. On an error the old file is as it was.
  Outcome Write() { return writer_.Commit(); }

 private:
  const FileSystem& files_;
  const bool native_;
  std::optional<std::string> relative_to_;  // the playlist's folder; nothing when lines are full paths
  TextWriter writer_;
};

// Replaces `path` by a playlist of `paths`; see PlaylistText.
Outcome WritePlaylistLines(const FileSystem& files, const std::string& path, const Collection& paths, bool Relative);

// Replaces `path` (".m3u8") by a playlist that is handed to other programs, never one of the user's. Where paths have
// no drives, a path with "#", "%", "?" or an end of line is an address there ("file:///m/a%231.mp3"): some players
// take every line for one, and all of them read these.
Outcome WriteHandOver(const FileSystem& files, const std::string& path, const Collection& paths);

}  // namespace qublet

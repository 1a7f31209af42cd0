#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/file_system.h"
#include "platform/language_code_page.h"
#include "playlist/kept_line.h"
#include "playlist/paths/collections.h"
#include "playlist/paths/text_writer.h"
#include "playlist/playlist_form.h"
#include "playlist/relative_lines.h"

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
// is. The lines end at PlaylistBounds. Given up when the file can't be read or names no audio file.
Outcome ReadPlaylistLines(const FileSystem& files, const std::string& path, Collection& lines);

// The same on a playlist's content already in memory. `native` says that the paths are in this system's form.
bool ReadPlaylistText(const FileSystem& files, std::string_view bytes, bool native, Collection& lines);

// How many lines of a playlist name files of other types, playlists among them; 0 for what is no playlist or can't be
// read. Lines beyond PlaylistBounds::kMostLineBytes don't count.
std::size_t CountOtherLines(const FileSystem& files, const std::string& path);

// A playlist file put together item by item. An item's line is its full path in the file's form, or with `Relative`
// what the folder of the playlist leaves of it (see RelativeLines; only ".m3u8" has lines that leave the folder). A
// line that would be misread becomes a full path, and what this system can't say in its own form (a drive it doesn't
// have, an end of line in a name) a path in drive form. An address stands bare.
class PlaylistText {
 public:
  // `form` is that of a new playlist unless it is given.
  PlaylistText(const FileSystem& files, const std::string& path, bool Relative,
               const std::optional<PlaylistForm>& form = {});

  // Appends an item. The two parts of its path come apart, as rows hold them: most lines need no joined text. `kept`
  // is the line that it came from, if its file isn't there: that goes back byte for byte where it still says the
  // same.
  void Add(const std::string& folder, const std::string& name, const KeptLine* kept = nullptr);
  // How many items of a relative playlist have got their full paths; addresses don't count.
  int LeftAbsolute() const { return left_absolute_; }
  // Replaces the file by what was added; to be called once. On an error the old file is as it was.
  Outcome Write() { return writer_.Commit(); }

 private:
  bool AddKept(const KeptLine& kept);
  void AddMissing(const std::string& item, const KeptLine& kept);
  bool AddRaw(const std::string& item);
  void AddLine(const std::string& line);
  std::string LineOf(const std::string& item);
  std::optional<std::string> RelativeLineOf(const std::string& item);
  std::string FullLineOf(const std::string& item) const;

  const FileSystem& files_;
  const std::string folder_;
  const bool native_type_;  // ".m3u8"
  const PlaylistForm form_;
  const bool own_form_has_drives_;
  std::optional<RelativeLines> relative_;  // nothing when lines are full paths
  std::optional<LanguageCodePage> page_;   // once a line was decoded
  int left_absolute_ = 0;
  TextWriter writer_;
};

// Replaces `path` by a playlist of `paths`; see PlaylistText.
Outcome WritePlaylistLines(const FileSystem& files, const std::string& path, const Collection& paths, bool Relative);

// Replaces `path`, a plain playlist or a bookmark file, by lines of full or relative paths; addresses stand bare.
Outcome WritePlainLines(const FileSystem& files, const std::string& path, const Collection& lines);

// Replaces `path` (".m3u8") by a playlist that is handed to other programs, never one of the user's. Where paths have
// no drives, a path with "#", "%", "?" or an end of line is an address there ("file:///m/a%231.mp3"): some players
// take every line for one, and all of them read these.
Outcome WriteHandOver(const FileSystem& files, const std::string& path, const Collection& paths);

}  // namespace qublet

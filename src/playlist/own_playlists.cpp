#include "playlist/own_playlists.h"

#include <string_view>

#include "platform/code_page.h"
#include "playlist/paths/playlist_bounds.h"
#include "playlist/paths/text.h"
#include "playlist/paths/text_files.h"

namespace qublet {
namespace {

// As each full path does, and each address.
bool HasRoot(std::string_view line) {
  return line.starts_with('\\') || Contains(line, ":");
}

}  // namespace

Outcome ReadOwnPlaylist(const FileSystem& files, const std::string& path, Collection& paths) {
  std::string bytes;
  const Outcome read = ReadTextFile(files, path, bytes);
  if (!read) return read;
  const std::string text = DecodeText(bytes);
  std::string_view rest = text;
  std::size_t count = 0;
  while (!rest.empty() && count < PlaylistBounds::kMostLines) {
    const std::string_view line = TakeLine(rest);
    if (!HasRoot(line) || line.size() > PlaylistBounds::kMostLineBytes) continue;
    paths.emplace_back(line);
    ++count;
  }
  return count == 0 ? Outcome::GivenUp("it names no file") : Outcome();
}

}  // namespace qublet

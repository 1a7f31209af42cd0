#include "playlist/own_playlists.h"

#include <utility>

#include "playlist/paths/text.h"
#include "playlist/paths/text_files.h"

namespace qublet {
namespace {

// As each full path does, and each address.
bool HasRoot(const std::string& line) {
  return line.starts_with('\\') || Contains(line, ":");
}

}  // namespace

Outcome ReadOwnPlaylist(const FileSystem& files, const std::string& path, Collection& paths) {
  Collection lines;
  const Outcome read = ReadLinesFromFile(files, lines, path);
  if (!read) return read;
  std::erase_if(lines, [](const std::string& line) { return !HasRoot(line); });
  if (lines.empty()) return Outcome::GivenUp("it names no file");
  for (std::string& line : lines) paths.push_back(std::move(line));
  return {};
}

}  // namespace qublet

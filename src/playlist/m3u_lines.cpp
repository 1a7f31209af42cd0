#include "playlist/m3u_lines.h"

#include "platform/code_page.h"
#include "playlist/paths/folder_walk.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"
#include "playlist/paths/text_files.h"

namespace qublet {
namespace {

constexpr std::string_view kUtf8Playlist = ".m3u8";

bool IsNativeForm(std::string_view path) {
  return LowerCase(GetExtension(GetFileName(path))) == kUtf8Playlist;
}

bool HasDrive(std::string_view line) {
  return line.size() > 1 && line[1] == ':';
}

// A line of a playlist in this system's own form. A backslash may belong to a name here, or separate folders in a
// playlist that came from elsewhere: what is there decides.
std::string FromNativeLine(const FileSystem& files, const std::string& line) {
  if (HasDrive(line)) return line;
  const std::string own = files.FromNative(line);
  if (!Contains(line, "\\") || files.Attributes(own)) return own;
  return files.Attributes(line) ? line : own;
}

// A line of a plain playlist: in drive form, but for those that other programs of this system write.
std::string FromPlainLine(const FileSystem& files, const std::string& line) {
  const bool own_form = line.front() == '/' || (Contains(line, "/") && !Contains(line, ":") && !Contains(line, "\\"));
  return own_form ? files.FromNative(line) : line;
}

std::string TakeIn(const FileSystem& files, const std::string& line, bool native) {
  std::string path = line;
  ResumeNext([&] { path = native ? FromNativeLine(files, line) : FromPlainLine(files, line); });
  if (HasDrive(path)) path[0] = LowerCase(path.substr(0, 1))[0];
  return path;
}

}  // namespace

bool IsPlaylistExtension(std::string_view extension) {
  return extension == ".m3u" || extension == ".bm" || extension == kUtf8Playlist;
}

bool ReadPlaylistText(const FileSystem& files, std::string_view bytes, bool native, Collection& lines) {
  bool found = false;
  const std::string text = DecodeText(bytes);
  for (const std::string& line : SplitLines(text)) {
    if (line.empty() || line.front() == '#') continue;
    const std::string lowered = LowerCase(line);
    for (const std::string& filter : FileFilters()) {
      if (!Contains(lowered, std::string_view(filter).substr(1))) continue;
      lines.push_back(TakeIn(files, line, native));
      found = true;
    }
  }
  return found;
}

bool ReadPlaylistLines(const FileSystem& files, const std::string& path, Collection& lines) {
  const std::optional<std::string> bytes = ReadTextFile(files, path);
  return bytes && ReadPlaylistText(files, *bytes, IsNativeForm(path), lines);
}

bool WritePlaylistLines(const FileSystem& files, const std::string& path, Collection lines, bool Relative) {
  if (Relative) MakeLinesRelative(lines, ReplaceAll(path, "\\" + GetFileName(path), ""));
  if (!IsNativeForm(path)) return WriteLinesToFile(files, path, lines);
  std::string text;
  return Guarded([&] {
           for (const std::string& line : lines) text += files.ToNative(line) + "\n";
         }) &&
         WriteTextFile(files, path, text);
}

}  // namespace qublet

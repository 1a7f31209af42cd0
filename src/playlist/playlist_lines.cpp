#include "playlist/playlist_lines.h"

#include <utility>

#include "platform/code_page.h"
#include "platform/drive_form.h"
#include "platform/file_address.h"
#include "playlist/m3u_lines.h"
#include "playlist/paths/folder_walk.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"
#include "playlist/paths/text_files.h"

namespace qublet {
namespace {

// A line of a playlist in this system's own form, as bytes and as text. Where paths have no drives of their own, a
// backslash or a colon may belong to a name here or to a path that came from elsewhere, and bytes that are no UTF-8
// may be a name of just these bytes or code page text: what is there decides.
std::string FromNativeLine(const FileSystem& files, const std::string& bytes, const std::string& text) {
  if (IsAddress(text)) return text;
  std::string own = files.FromNative(bytes);
  const bool plain = !HasDrive(text) && !Contains(text, "\\");
  const bool certain = bytes == text && (plain || OwnFormHasDrives(files));
  if (certain || files.Attributes(own)) return own;
  if (HasDrive(text) || files.Attributes(text)) return text;
  return files.FromNative(text);
}

// A line of a plain playlist: in drive form, but for those that other programs of this system write.
std::string FromPlainLine(const FileSystem& files, const std::string& line) {
  const bool own_form = line.front() == '/' || (Contains(line, "/") && !Contains(line, ":") && !Contains(line, "\\"));
  if (own_form) return files.FromNative(line);
  std::string_view path = line;
  while (path.starts_with(".\\") && path.size() > 2) path.remove_prefix(2);
  return std::string(path);
}

std::string TakeIn(const FileSystem& files, const std::string& bytes, bool native, const LanguageCodePage& page) {
  const std::string text = LineText(bytes, page);
  std::string path = text;
  ResumeNext([&] { path = native ? FromNativeLine(files, bytes, text) : FromPlainLine(files, text); });
  const std::string first = FirstCharacters(path, 1);
  if (std::string_view(path).substr(first.size()).starts_with(':')) path.replace(0, first.size(), LowerCase(first));
  return path;
}

void AppendUnit(std::string& text, char32_t unit, char32_t& high) {
  const bool is_low = unit >= 0xDC00 && unit < 0xE000;
  if (high != 0) text += is_low ? CharacterText(0x10000 + ((high - 0xD800) << 10) + (unit - 0xDC00)) : "\uFFFD";
  const bool used = high != 0 && is_low;
  high = unit >= 0xD800 && unit < 0xDC00 ? unit : 0;
  if (!used && high == 0) text += is_low ? "\uFFFD" : CharacterText(unit);
}

// UTF-16 without its mark as UTF-8; half a pair becomes the sign for what can't be read.
std::string FromUtf16(std::string_view bytes, bool big_endian) {
  std::string text;
  text.reserve(bytes.size());
  char32_t high = 0;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const auto first = static_cast<unsigned char>(bytes[i]);
    const auto second = static_cast<unsigned char>(bytes[i + 1]);
    AppendUnit(text, static_cast<char32_t>(big_endian ? first << 8 | second : second << 8 | first), high);
  }
  if (high != 0) text += "\uFFFD";
  return text;
}

std::string WithoutEncodingOfWhole(std::string bytes) {
  if (bytes.starts_with("\xFF\xFE")) return FromUtf16(std::string_view(bytes).substr(2), false);
  if (bytes.starts_with("\xFE\xFF")) return FromUtf16(std::string_view(bytes).substr(2), true);
  if (WithoutMark(bytes).size() != bytes.size()) bytes.erase(0, bytes.size() - WithoutMark(bytes).size());
  return bytes;
}

// The lines of `playlist.content`.
void TakeLines(const FileSystem& files, PlaylistLines& playlist, Collection& paths) {
  std::optional<LanguageCodePage> page;
  std::string_view rest = playlist.content;
  while (!rest.empty()) {
    const std::string_view line = TakeLine(rest);
    if (line.empty() || line.front() == '#') continue;
    const std::string lowered = LowerCase(line);
    for (const std::string& filter : FileFilters()) {
      if (!Contains(lowered, std::string_view(filter).substr(1))) continue;
      if (!page) page.emplace();
      paths.push_back(TakeIn(files, std::string(line), playlist.native, *page));
      playlist.lines.push_back(line);
    }
  }
}

}  // namespace

std::string LineText(std::string_view bytes, const LanguageCodePage& page) {
  return IsValidUtf8(bytes) ? std::string(bytes) : page.Decode(bytes);
}

std::optional<std::string> PathOfAddress(const FileSystem& files, std::string_view address,
                                         const LanguageCodePage& page) {
  const auto file = FileOfAddress(address);
  if (!file) return std::nullopt;
  const std::string path = PercentDecoded(file->path);
  if (!file->host.empty()) return "\\\\" + file->host + ReplaceAll(LineText(path, page), "/", "\\");
  if (!HasDrive(std::string_view(path).substr(1))) return files.FromNative(path);
  return PlainDrivePath(LineText(path, page).substr(1));
}

bool OwnFormHasDrives(const FileSystem& files) {
  std::string here;
  ResumeNext([&] { here = files.ToNative(files.CurrentFolder()); });
  return !here.empty() && !here.starts_with('/');
}

std::string PlainDrivePath(std::string_view path) {
  const bool server = path.size() > 1 && IsSeparator(path[0]) && IsSeparator(path[1]);
  std::string plain(server ? "\\" : path.substr(0, 2));
  const std::size_t least = plain.size();
  path.remove_prefix(2);
  while (!path.empty()) {
    const std::size_t end = std::min(path.find_first_of("\\/"), path.size());
    const std::string_view name = path.substr(0, end);
    path.remove_prefix(std::min(end + 1, path.size()));
    if (name == "..") {
      plain.resize(plain.size() == least ? least : plain.rfind('\\'));
    } else if (!name.empty() && name != ".") {
      plain.append("\\").append(name);
    }
  }
  return plain;
}

bool ReadPlaylistText(const FileSystem& files, std::string_view bytes, bool native, Collection& lines) {
  PlaylistLines playlist;
  playlist.native = native;
  playlist.content = WithoutEncodingOfWhole(std::string(bytes));
  TakeLines(files, playlist, lines);
  return !playlist.lines.empty();
}

Outcome ReadPlaylist(const FileSystem& files, const std::string& path, PlaylistLines& playlist, Collection& paths) {
  const Outcome read = ReadTextFile(files, path, playlist.content);
  if (!read) return read;
  playlist.content = WithoutEncodingOfWhole(std::move(playlist.content));
  playlist.native = IsNativePlaylist(path);
  playlist.folder = path.substr(0, path.size() - GetFileName(path).size());
  TakeLines(files, playlist, paths);
  return playlist.lines.empty() ? Outcome::GivenUp("it names no audio file") : Outcome();
}

Outcome ReadPlaylistLines(const FileSystem& files, const std::string& path, Collection& lines) {
  PlaylistLines playlist;
  return ReadPlaylist(files, path, playlist, lines);
}

}  // namespace qublet

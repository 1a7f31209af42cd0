#include "playlist/playlist_lines.h"

#include <algorithm>
#include <utility>

#include "platform/code_page.h"
#include "platform/drive_form.h"
#include "platform/file_address.h"
#include "playlist/m3u_lines.h"
#include "playlist/paths/folder_walk.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/playlist_bounds.h"
#include "playlist/paths/text.h"
#include "playlist/paths/text_files.h"

namespace qublet {
namespace {

// Lines on their way to paths.
struct Reader {
  const FileSystem& files;
  const bool native;
  const bool own_form_has_drives = OwnFormHasDrives(files);
  const LanguageCodePage page{};
};

// A line of a playlist in this system's own form. Where paths have no drives of their own, those of elsewhere are
// taken too: a "\" parts names unless the line holds a "/".
std::string FromNativeLine(const Reader& reader, const std::string& text) {
  if (IsAddress(text)) return text;
  if (reader.own_form_has_drives) return reader.files.FromNative(text);
  if (HasDrive(text)) return Contains(text, "\\.") ? PlainDrivePath(text) : text;
  if (Contains(text, "/")) return reader.files.FromNative(text);
  if (text.starts_with("\\\\")) return text;
  if (text.starts_with('\\')) return PlainDrivePath(reader.files.CurrentFolder().substr(0, 2) + text);
  return reader.files.FromNative(ReplaceAll(text, "\\", "/"));
}

// A line of a plain playlist: in drive form, but for those that other programs of this system write.
std::string FromPlainLine(const Reader& reader, const std::string& text) {
  const bool own_form = text.front() == '/' || (Contains(text, "/") && !Contains(text, ":") && !Contains(text, "\\"));
  if (own_form) return reader.files.FromNative(text);
  std::string_view path = text;
  while (path.starts_with(".\\") && path.size() > 2) path.remove_prefix(2);
  return std::string(path);
}

std::string TakeIn(const Reader& reader, std::string_view line) {
  const std::string text = LineText(line, reader.page);
  std::string path = text;
  Attempt([&] {
    const auto addressed = PathOfAddress(reader.files, text, reader.page);
    path = addressed ? *addressed : reader.native ? FromNativeLine(reader, text) : FromPlainLine(reader, text);
  }).MindMemory();
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

char32_t UnitAt(std::string_view bytes, std::size_t place, bool big_endian) {
  const auto first = static_cast<unsigned char>(bytes[place]);
  const auto second = static_cast<unsigned char>(bytes[place + 1]);
  return static_cast<char32_t>(big_endian ? first << 8 | second : second << 8 | first);
}

// How many bytes of UTF-8 they come to at most: a pair takes four, half a pair three.
std::size_t RoomFor(std::string_view bytes, bool big_endian) {
  std::size_t room = 3;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const char32_t unit = UnitAt(bytes, i, big_endian);
    room += unit < 0x80 ? 1 : unit < 0x800 ? 2 : 3;
  }
  return room;
}

// UTF-16 without its mark as UTF-8; half a pair becomes the sign for what can't be read. A text that grew would
// stand in memory twice meanwhile.
std::string FromUtf16(std::string_view bytes, bool big_endian) {
  std::string text;
  text.reserve(RoomFor(bytes, big_endian));
  char32_t high = 0;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) AppendUnit(text, UnitAt(bytes, i, big_endian), high);
  if (high != 0) text += "\uFFFD";
  return text;
}

std::string WithoutEncodingOfWhole(std::string bytes) {
  if (bytes.starts_with("\xFF\xFE")) return FromUtf16(std::string_view(bytes).substr(2), false);
  if (bytes.starts_with("\xFE\xFF")) return FromUtf16(std::string_view(bytes).substr(2), true);
  if (WithoutMark(bytes).size() != bytes.size()) bytes.erase(0, bytes.size() - WithoutMark(bytes).size());
  return bytes;
}

// Whether the line holds `extension` (lower case, with its dot), in any case.
bool Holds(std::string_view line, std::string_view extension) {
  const auto same = [](char letter, char lower) {
    return letter == lower || (letter >= 'A' && letter <= 'Z' && (letter | 0x20) == lower);
  };
  for (std::size_t at = line.find('.'); at != line.npos; at = line.find('.', at + 1)) {
    const std::string_view there = line.substr(at, extension.size());
    if (std::ranges::equal(there, extension, same)) return true;
  }
  return false;
}

int KindsIn(std::string_view line) {
  return static_cast<int>(std::ranges::count_if(
      FileFilters(), [&](const std::string& filter) { return Holds(line, std::string_view(filter).substr(1)); }));
}

// Takes lines into a playlist for as long as there is room.
class Collector {
 public:
  Collector(const FileSystem& files, PlaylistLines& playlist, Collection& paths)
      : reader_{files, playlist.native}, playlist_(playlist), paths_(paths) {}

  // Once for each kind of audio file that it names.
  void Take(std::string_view line) {
    if (line.size() > PlaylistBounds::kMostLineBytes) {
      ++playlist_.long_lines;
      return;
    }
    const int kinds = KindsIn(line);
    if (kinds == 0) ++playlist_.other_lines;
    for (int i = 0; i < kinds; ++i) TakePath(line);
  }

 private:
  void TakePath(std::string_view line) {
    full_ = full_ || playlist_.lines.size() == PlaylistBounds::kMostLines;
    std::string path = full_ ? "" : TakeIn(reader_, line);
    full_ = full_ || path_bytes_ + path.size() > PlaylistBounds::kMostPathBytes;
    if (full_) {
      ++playlist_.further_lines;
      return;
    }
    path_bytes_ += path.size();
    paths_.push_back(std::move(path));
    playlist_.lines.push_back(line);
  }

  const Reader reader_;
  PlaylistLines& playlist_;
  Collection& paths_;
  std::size_t path_bytes_ = 0;
  bool full_ = false;
};

}  // namespace

void ReadPlaylistBytes(const FileSystem& files, std::string bytes, PlaylistLines& playlist, Collection& paths) {
  playlist.content = WithoutEncodingOfWhole(std::move(bytes));
  Collector collector(files, playlist, paths);
  std::string_view rest = playlist.content;
  while (!rest.empty()) {
    const std::string_view line = TakeLine(rest);
    if (!line.empty() && line.front() != '#') collector.Take(line);
  }
}

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
  std::string plain = server ? "\\" : std::string{static_cast<char>(path[0] | 0x20), ':'};
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
  ReadPlaylistBytes(files, std::string(bytes), playlist, lines);
  return !playlist.lines.empty();
}

Outcome ReadPlaylist(const FileSystem& files, const std::string& path, PlaylistLines& playlist, Collection& paths) {
  std::string bytes;
  const Outcome read = ReadTextFile(files, path, bytes);
  if (!read) return read;
  playlist.native = IsNativePlaylist(path);
  playlist.folder = FolderAsItStands(path);
  if (const auto linked = files.LinkedFile(path)) playlist.linked_folder = FolderAsItStands(*linked);
  ReadPlaylistBytes(files, std::move(bytes), playlist, paths);
  return playlist.lines.empty() ? Outcome::GivenUp("it names no audio file") : Outcome();
}

Outcome ReadPlaylistLines(const FileSystem& files, const std::string& path, Collection& lines) {
  PlaylistLines playlist;
  return ReadPlaylist(files, path, playlist, lines);
}

}  // namespace qublet

#include "playlist/m3u_lines.h"

#include <algorithm>
#include <utility>

#include "platform/code_page.h"
#include "platform/drive_form.h"
#include "platform/file_address.h"
#include "playlist/expansion.h"
#include "playlist/paths/folder_walk.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"
#include "playlist/paths/text_files.h"
#include "playlist/playlist_lines.h"

namespace qublet {
namespace {

constexpr std::string_view kUtf8Playlist = ".m3u8";

// A row that is an address has no folder.
std::optional<std::string> AddressIn(const std::string& item) {
  if (!Contains(item, "://")) return std::nullopt;
  std::string address = item.substr(item.starts_with('\\') ? 1 : 0);
  if (!IsAddress(address) || Contains(address, "\\")) return std::nullopt;
  return address;
}

// A path in this system's own form; what this form can't say keeps its drive form.
std::string NativePath(const FileSystem& files, const std::string& path) {
  std::string native = path;
  ResumeNext([&] { native = files.ToNative(path); });
  return native.find_first_of("\r\n") != native.npos ? path : native;
}

std::string HandOverLine(const FileSystem& files, const std::string& path) {
  if (const auto address = AddressIn(path)) return *address;
  std::string whole;
  ResumeNext([&] { whole = files.ToNative(path); });
  return whole.starts_with('/') && whole.find_first_of("#%?\r\n") != whole.npos ? FileAddress(whole)
                                                                                : NativePath(files, path);
}

}  // namespace

bool IsPlaylistExtension(std::string_view extension) {
  return std::ranges::find(PlaylistFilters(), "*" + std::string(extension)) != PlaylistFilters().end();
}

bool IsNativePlaylist(std::string_view path) {
  return LowerCase(GetExtension(GetFileName(path))) == kUtf8Playlist;
}

std::size_t CountOtherLines(const FileSystem& files, const std::string& path) {
  if (!IsPlaylistExtension(LowerCase(GetExtension(GetFileName(path))))) return 0;
  PlaylistLines playlist;
  Collection paths;
  ReadPlaylist(files, path, playlist, paths);  // counts also where no line is taken
  return playlist.other_lines;
}

PlaylistText::PlaylistText(const FileSystem& files, const std::string& path, bool Relative,
                           const std::optional<PlaylistForm>& form)
    : files_(files),
      folder_(FolderOfPlaylist(path)),
      native_type_(IsNativePlaylist(path)),
      form_(form.value_or(NewForm(path))),
      own_form_has_drives_(OwnFormHasDrives(files)),
      writer_(files, path, form_.utf8 ? TextWriter::Encoding::kUtf8 : TextWriter::Encoding::kByLine, form_.mark) {
  if (Relative) relative_.emplace(files, path, native_type_);
}

void PlaylistText::AddLine(const std::string& line) {
  writer_.Append(line);
  writer_.Append(form_.native ? "\n" : "\r\n");
}

void PlaylistText::Add(const std::string& folder, const std::string& name, const KeptLine* kept) {
  if (kept != nullptr && !relative_ && AddKept(*kept)) return;
  if (kept != nullptr) return AddMissing(kept->whole.empty() ? folder + name : kept->whole, *kept);
  const bool plain_path = folder.size() > 1 && !form_.native && !relative_;
  if (!plain_path) {
    const std::string item = folder + name;
    if (!AddRaw(item)) AddLine(LineOf(item));
    return;
  }
  writer_.Append(folder);
  writer_.Append(name);
  writer_.Append("\r\n");
}

bool PlaylistText::AddKept(const KeptLine& kept) {
  if (!StandsIn(kept, folder_)) return false;
  std::optional<std::string> other;
  if (kept.source->native != native_type_) {
    if (!page_) page_.emplace();
    other = InOtherType(files_, kept, *page_);
  }
  if (other) {
    AddLine(*other);
  } else {
    writer_.AppendBytes(kept.bytes);
    writer_.Append(form_.native ? "\n" : "\r\n");
  }
  return true;
}

// The path of an item whose line says something else here. Letters that stand in for others are nobody's but ours.
void PlaylistText::AddMissing(const std::string& item, const KeptLine& kept) {
  const int left_absolute = left_absolute_;
  std::string line = LineOf(item);
  if (!form_.native && HasOtherLetters(line, kept)) {
    const std::string native = NativePath(files_, item);
    if (native.starts_with('/') && IsValidUtf8(native)) {
      line = native;
      left_absolute_ = left_absolute + (relative_ ? 1 : 0);
    }
  }
  AddLine(line);
}

// A name that is no UTF-8 goes into a plain playlist of a player of this system as the bytes that it is, but where
// they are the name of another file in the user's code page.
bool PlaylistText::AddRaw(const std::string& item) {
  if (!form_.native || native_type_ || relative_) return false;
  const std::string native = NativePath(files_, item);
  if (!native.starts_with('/') || IsValidUtf8(native)) return false;
  if (!page_) page_.emplace();
  bool other = true;
  ResumeNext([&] { other = files_.Exists(files_.FromNative(LineText(native, *page_))); });
  if (other) return false;
  writer_.AppendBytes(native);
  writer_.Append("\n");
  return true;
}

std::string PlaylistText::LineOf(const std::string& item) {
  if (auto address = AddressIn(item)) return *address;
  if (!relative_) return FullLineOf(item);
  if (auto line = RelativeLineOf(item)) return *line;
  ++left_absolute_;
  return FullLineOf(item);
}

std::string PlaylistText::FullLineOf(const std::string& item) const {
  if (!form_.native) return item;
  const std::string native = NativePath(files_, item);
  // In a plain playlist bytes that are no UTF-8 would be text.
  return native_type_ || IsValidUtf8(native) ? native : item;
}

std::optional<std::string> PlaylistText::RelativeLineOf(const std::string& item) {
  const auto relative = relative_->LineOf(item);
  if (!relative || WithoutMark(*relative) != *relative) return std::nullopt;
  if (!form_.native) return (relative->starts_with('#') ? ".\\" : "") + *relative;

  std::string native;
  ResumeNext([&] { native = files_.ToNative(*relative); });
  const bool like_a_drive = native != *relative && HasDrive(native);
  if (native.empty() || like_a_drive || native.find_first_of("\r\n") != native.npos) return std::nullopt;
  if (!native_type_ && (native.find_first_of("\\:") != native.npos || !IsValidUtf8(native))) return std::nullopt;
  const bool backslash_in_name = !own_form_has_drives_ && Contains(native, "\\") && !Contains(native, "/");
  if (native.starts_with('#') || backslash_in_name) native.insert(0, own_form_has_drives_ ? ".\\" : "./");
  return native;
}

Outcome WritePlaylistLines(const FileSystem& files, const std::string& path, const Collection& paths, bool Relative) {
  PlaylistText text(files, path, Relative);
  for (const std::string& item : paths) text.Add("", item);
  return text.Write();
}

Outcome WriteHandOver(const FileSystem& files, const std::string& path, const Collection& paths) {
  TextWriter writer(files, path, TextWriter::Encoding::kUtf8);
  for (const std::string& item : paths) writer.Append(HandOverLine(files, item) + "\n");
  return writer.Commit();
}

Outcome WritePlainLines(const FileSystem& files, const std::string& path, const Collection& lines) {
  TextWriter writer(files, path, TextWriter::Encoding::kByLine);
  for (const std::string& line : lines) writer.Append(AddressIn(line).value_or(line) + "\r\n");
  return writer.Commit();
}

}  // namespace qublet

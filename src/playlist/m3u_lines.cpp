#include "playlist/m3u_lines.h"

#include <algorithm>
#include <utility>

#include "platform/code_page.h"
#include "platform/drive_form.h"
#include "platform/file_address.h"
#include "playlist/paths/folder_walk.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

constexpr std::string_view kUtf8Playlist = ".m3u8";

// What a playlist in `folder` says for an item: its relative line, but for one that would read as a comment or lose
// its beginning as a byte-order mark.
std::string LineBelow(const std::string& folder, const std::string& item) {
  std::string line = RelativeLine(item, folder);
  const bool misread = line.starts_with('#') || WithoutMark(line) != line;
  return misread ? item : line;
}

// The line of a path in this system's own form; a path that this form can't say keeps its drive form.
std::string NativeLine(const FileSystem& files, const std::string& path, const std::string& line) {
  if (IsAddress(GetFileName(line))) return GetFileName(line);
  std::string native = line;
  ResumeNext([&] { native = files.ToNative(line); });
  if (native.find_first_of("\r\n") != native.npos) return path;
  // A relative line that begins like a drive.
  if (native != line && HasDrive(native)) ResumeNext([&] { native = files.ToNative(path); });
  return native;
}

std::string HandOverLine(const FileSystem& files, const std::string& path) {
  const std::string native = NativeLine(files, path, path);
  std::string whole;
  ResumeNext([&] { whole = files.ToNative(path); });
  return whole.starts_with('/') && whole.find_first_of("#%?\r\n") != whole.npos ? FileAddress(whole) : native;
}

}  // namespace

bool IsPlaylistExtension(std::string_view extension) {
  return std::ranges::find(PlaylistFilters(), "*" + std::string(extension)) != PlaylistFilters().end();
}

bool IsNativePlaylist(std::string_view path) {
  return LowerCase(GetExtension(GetFileName(path))) == kUtf8Playlist;
}

PlaylistText::PlaylistText(const FileSystem& files, const std::string& path, bool Relative)
    : files_(files),
      native_(IsNativePlaylist(path)),
      writer_(files, path, native_ ? TextWriter::Encoding::kUtf8 : TextWriter::Encoding::kText) {
  if (Relative) relative_to_ = ReplaceAll(path, "\\" + GetFileName(path), "");
}

void PlaylistText::Add(const std::string& folder, const std::string& name) {
  if (!native_ && !relative_to_) {
    writer_.Append(folder);
    writer_.Append(name);
    writer_.Append("\r\n");
    return;
  }
  const std::string item = folder + name;
  const std::string line = relative_to_ ? LineBelow(*relative_to_, item) : item;
  writer_.Append(native_ ? NativeLine(files_, item, line) + "\n" : line + "\r\n");
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

}  // namespace qublet

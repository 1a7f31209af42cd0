#include "playlist/m3u_lines.h"

#include <algorithm>
#include <utility>

#include "platform/code_page.h"
#include "platform/drive_form.h"
#include "platform/file_address.h"
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

// "http://..." and its like.
bool IsAddress(std::string_view path) {
  const std::size_t scheme_end = path.find("://");
  return scheme_end != path.npos && scheme_end > 1 && path.find_first_of("/\\:") == scheme_end;
}

// Whether paths have drives and backslashes in this system's own form too.
bool OwnFormHasDrives(const FileSystem& files) {
  std::string here;
  ResumeNext([&] { here = files.ToNative(files.CurrentFolder()); });
  return !here.empty() && !here.starts_with('/');
}

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
  return own_form ? files.FromNative(line) : line;
}

std::string TakeIn(const FileSystem& files, const std::string& line, bool native) {
  std::string path = IsValidUtf8(line) ? line : FromCodePage(line);
  ResumeNext([&] { path = native ? FromNativeLine(files, line, path) : FromPlainLine(files, line); });
  const std::string first = FirstCharacters(path, 1);
  if (std::string_view(path).substr(first.size()).starts_with(':')) path.replace(0, first.size(), LowerCase(first));
  return path;
}

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

bool ReadPlaylistText(const FileSystem& files, std::string_view bytes, bool native, Collection& lines) {
  bool found = false;
  const std::string decoded = native ? "" : DecodeText(bytes);
  std::string_view rest = native ? WithoutMark(bytes) : decoded;
  while (!rest.empty()) {
    const std::string line(TakeLine(rest));
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

Outcome ReadPlaylistLines(const FileSystem& files, const std::string& path, Collection& lines) {
  std::string bytes;
  const Outcome read = ReadTextFile(files, path, bytes);
  if (!read || ReadPlaylistText(files, bytes, IsNativeForm(path), lines)) return read;
  return Outcome::GivenUp("it names no audio file");
}

PlaylistText::PlaylistText(const FileSystem& files, const std::string& path, bool Relative)
    : files_(files),
      native_(IsNativeForm(path)),
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

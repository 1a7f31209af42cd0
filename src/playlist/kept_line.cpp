#include "playlist/kept_line.h"

#include <algorithm>
#include <string_view>

#include "platform/drive_form.h"
#include "platform/file_address.h"
#include "playlist/paths/text.h"
#include "playlist/playlist_lines.h"

namespace qublet {
namespace {

// Without the blanks and tabs around it.
std::string_view Bare(std::string_view line) {
  constexpr std::string_view kBlanks = " \t";
  const std::size_t first = std::min(line.find_first_not_of(kBlanks), line.size());
  return line.substr(first, line.find_last_not_of(kBlanks) + 1 - first);
}

bool IsRooted(std::string_view bare) {
  return !bare.empty() && IsSeparator(bare[0]) && (bare.size() < 2 || !IsSeparator(bare[1]));
}

// How many letters stand in for characters that a path in drive form can't hold: U+F001 to U+F7FF.
std::ptrdiff_t StandInsOf(const std::string& text) {
  std::ptrdiff_t count = 0;
  for (std::size_t i = 0; i + 2 < text.size(); ++i) {
    const auto second = static_cast<unsigned char>(text[i + 1]);
    if (text[i] == '\xEF' && second >= 0x80 && second <= 0x9F) ++count;
  }
  return count;
}

std::optional<std::string> InNativeForm(const FileSystem& files, const std::string& text) {
  if (text.starts_with('/') || text.starts_with("\\\\")) return text;
  std::string native;
  ResumeNext([&] { native = files.ToNative(text); });
  if (native.empty() || native.find_first_of("\r\n") != native.npos) return std::nullopt;
  return native;
}

std::optional<std::string> InDriveForm(const FileSystem& files, const std::string& text) {
  if (HasDrive(text) || text.starts_with('\\')) return ReplaceAll(text, "/", "\\");
  std::string path;
  ResumeNext([&] { path = files.FromNative(text); });
  if (path.empty() || StandInsOf(path) > StandInsOf(text)) return std::nullopt;
  return path;
}

std::optional<std::string> RelativeIn(bool native, bool own_form_has_drives, const std::string& text) {
  if (native && !own_form_has_drives) return ReplaceAll(text, "\\", "/");
  // A "\" beside "/" is part of a name.
  if (!own_form_has_drives && Contains(text, "/") && Contains(text, "\\")) return std::nullopt;
  return ReplaceAll(text, "/", "\\");
}

}  // namespace

bool StandsIn(const KeptLine& line, const std::string& folder) {
  const std::string_view bare = Bare(line.bytes);
  if (HasDrive(bare) || IsAddress(bare)) return true;
  if (!IsRooted(bare)) return bare.starts_with("\\\\") || bare.starts_with("//") || line.source->folder == folder;
  // The root of all, or of the drive that was current.
  return bare[0] == '/' || line.source->folder.substr(0, 2) == folder.substr(0, 2);
}

bool HasOtherLetters(const std::string& path, const KeptLine& line) {
  return StandInsOf(path) > StandInsOf(line.bytes);
}

std::optional<std::string> InOtherType(const FileSystem& files, const KeptLine& line, const LanguageCodePage& page) {
  const bool native = !line.source->native;
  const std::string text = LineText(line.bytes, page);
  const std::string bare(Bare(text));
  if (IsAddress(bare)) return std::nullopt;
  const bool own_form_has_drives = OwnFormHasDrives(files);
  if (!HasDrive(bare) && (bare.empty() || !IsSeparator(bare[0])))
    return RelativeIn(native, own_form_has_drives, text);
  const bool of_a_drive = IsRooted(bare) && bare[0] == '\\';
  const std::string whole = of_a_drive ? line.source->folder.substr(0, 2) + bare : bare;
  return native ? InNativeForm(files, whole) : InDriveForm(files, whole);
}

}  // namespace qublet

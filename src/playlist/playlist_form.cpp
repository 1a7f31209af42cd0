#include "playlist/playlist_form.h"

#include <array>
#include <cstdint>

#include "platform/code_page.h"
#include "platform/drive_form.h"
#include "platform/file_address.h"
#include "playlist/m3u_lines.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"
#include "playlist/paths/text_files.h"
#include "playlist/playlist_lines.h"

namespace qublet {
namespace {

bool IsOfThisSystem(std::string_view content) {
  bool own_path = false;
  std::string_view rest = content;
  while (!rest.empty()) {
    const std::size_t before = rest.size();
    const std::string_view line = TakeLine(rest);
    const bool cr_lf = before - rest.size() == line.size() + 2;
    if (IsAddress(line)) continue;
    if (cr_lf) return false;
    if (line.empty() || line.front() == '#') continue;
    if (HasDrive(line) || Contains(line, "\\")) return false;
    own_path = own_path || Contains(line, "/");
  }
  return own_path;
}

bool BeginsWithMark(const FileSystem& files, const std::string& path) {
  std::array<std::uint8_t, 3> bytes{};
  ResumeNext([&] { files.OpenForReading(path)->ReadAt(0, bytes); });
  return WithoutMark({reinterpret_cast<const char*>(bytes.data()), bytes.size()}).empty();
}

}  // namespace

PlaylistForm NewForm(std::string_view path) {
  const bool native = IsNativePlaylist(path);
  return {.native = native, .utf8 = native};
}

std::optional<PlaylistForm> FormToKeep(const FileSystem& files, const std::string& path, std::string_view content) {
  if (LowerCase(GetExtension(GetFileName(path))) != ".m3u" || OwnFormHasDrives(files)) return std::nullopt;
  if (!IsOfThisSystem(content)) return std::nullopt;
  const bool utf8 = IsValidUtf8(content);
  return PlaylistForm{.native = true, .utf8 = utf8, .mark = utf8 && BeginsWithMark(files, path)};
}

}  // namespace qublet

#include "playlist/paths/playlist_name.h"

#include <cstdint>
#include <vector>

#include "playlist/paths/numbers.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

constexpr std::size_t kMaxCharacters = 32766;

std::string TwoDigits(int number) {
  return PadNumberToWidth(static_cast<std::int16_t>(number), 10);
}

std::string DateText(const LocalTime& now) {
  const std::string year = PadNumberToWidth(static_cast<std::int16_t>(now.year), 1000);
  return TwoDigits(now.month) + "-" + TwoDigits(now.day) + "-" + year;
}

std::string TimeText(const LocalTime& now) {
  return TwoDigits(now.hour) + "-" + TwoDigits(now.minute) + "-" + TwoDigits(now.second);
}

std::string LevelToken(std::size_t level) {
  return std::string("%").append(std::to_string(level));
}

// Folders whose names hold tokens can make the name grow without end; it is given up when it gets too long.
std::string WithLevels(std::string name, const std::string& path) {
  const std::vector<std::string> pieces = Split(path, '\\');
  for (std::size_t level = 0; level < pieces.size(); ++level) {
    name = ReplaceAll(name, LevelToken(level), pieces[pieces.size() - 1 - level]);
    if (CharacterCount(name) > kMaxCharacters) return "";
  }
  return name;
}

}  // namespace

std::string MakePlaylistName(std::string& format, const std::string& path, const Clock& clock) {
  if (format.empty()) format = "%0-%1-%2-%3-%4-%5-%6-%7-%8-%9-";
  format = CharacterCount(path) > kMaxCharacters ? "" : WithLevels(std::move(format), path);

  const LocalTime now = clock.Now();
  format = ReplaceAll(format, "%DATE", DateText(now));
  format = ReplaceAll(format, "%TIME", TimeText(now));
  for (std::size_t level = 1; level <= 9; ++level) format = ReplaceAll(format, LevelToken(level), "");

  format = Trim(format);
  for (const char* refused : {":", "\\", "/"}) format = ReplaceAll(format, refused, "");
  return format.empty() ? "" : format + ".m3u";
}

}  // namespace qublet

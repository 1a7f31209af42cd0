#include "playlist/recent_files.h"

#include <algorithm>

#include "playlist/paths/numbers.h"
#include "playlist/paths/path_text.h"

namespace qublet {

void AddRecentFile(std::vector<std::string>& recent, const std::string& path, const AppSettings& settings) {
  if (std::find(recent.begin(), recent.end(), path) == recent.end()) recent.push_back(path);
  const std::size_t room = static_cast<std::size_t>(std::max<int>(settings.RCount, 0));
  if (recent.size() > room) recent.erase(recent.begin(), recent.end() - static_cast<std::ptrdiff_t>(room));
}

std::vector<std::string> RecentCaptions(const std::vector<std::string>& recent, const AppSettings& settings) {
  std::vector<std::string> captions;
  for (auto path = recent.rbegin(); path != recent.rend() && captions.size() < kRecentMenuRoom; ++path) {
    const auto number = static_cast<std::int16_t>(captions.size() + 1);
    captions.push_back(PadNumberToWidth(number, settings.RCount) + ": " +
                       (settings.RPath ? *path : GetFileName(*path)));
  }
  return captions;
}

}  // namespace qublet

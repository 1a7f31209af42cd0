#include "tools/rename/numbering.h"

#include <algorithm>
#include <limits>

#include "playlist/paths/folder_walk.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

std::int16_t Shortened(std::size_t number) {
  constexpr std::size_t kMost = std::numeric_limits<std::int16_t>::max();
  return static_cast<std::int16_t>(std::min(number, kMost));
}

bool IsAudioFile(const FolderEntry& entry) {
  if (entry.is_folder || entry.hidden) return false;
  const std::string folded = FoldCase(entry.name);
  return std::ranges::any_of(FileFilters(),
                             [&](const std::string& filter) { return MatchesFoldedWildcard(folded, filter); });
}

}  // namespace

bool InSeveralFolders(const Collection& paths) {
  if (paths.empty()) return false;
  const std::string first = GetFolderPath(paths.front());
  return std::ranges::any_of(paths, [&](const std::string& path) { return GetFolderPath(path) != first; });
}

Numbering::Number Numbering::Next(const std::string& path) {
  ++index_;
  if (!by_folder_) return {Shortened(index_), Shortened(entries_)};
  const std::string folder = ReplaceAll(path, "\\" + GetFileName(path), "");
  if (index_ == 1 || folder != folder_) {
    folder_ = folder;
    total_ = CountAudioFiles(folder);
  }
  return {Shortened(++indexes_[folder]), Shortened(total_)};
}

std::size_t Numbering::CountAudioFiles(const std::string& folder) const {
  std::ptrdiff_t count = 0;
  ResumeNext([&] { count = std::ranges::count_if(files_.ReadFolder(folder + "\\"), IsAudioFile); });
  return static_cast<std::size_t>(count);
}

}  // namespace qublet

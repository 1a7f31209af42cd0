#include "playlist/paths/existing_files.h"

#include <string_view>

#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

bool AnyFits(std::string_view names, std::string_view folded_pattern) {
  while (!names.empty()) {
    const std::size_t end = names.find('\0');
    if (MatchesFoldedWildcard(names.substr(0, end), folded_pattern)) return true;
    names.remove_prefix(end + 1);
  }
  return false;
}

}  // namespace

bool ExistingFiles::Has(const std::string& path) const {
  if (path.empty()) return false;
  if (files_.Exists(path)) return true;
  const std::string pattern = GetFileName(path);
  if (pattern.find_first_of("*?") == std::string::npos) return false;
  bool fits = false;
  ResumeNext([&] { fits = AnyFits(*NamesIn(path.substr(0, path.size() - pattern.size())), FoldCase(pattern)); });
  return fits;
}

// Other threads wait while a folder is read: they would mostly want the same one.
ExistingFiles::Names ExistingFiles::NamesIn(const std::string& folder) const {
  const std::lock_guard lock(mutex_);
  Names& names = listed_[folder];
  if (names) return names;
  std::string text;
  ResumeNext([&] {
    for (const FolderEntry& entry : files_.ReadFolder(folder.empty() ? files_.CurrentFolder() : folder))
      if (!entry.hidden) text.append(FoldCase(entry.name)).push_back('\0');
  });
  return names = std::make_shared<const std::string>(std::move(text));
}

}  // namespace qublet

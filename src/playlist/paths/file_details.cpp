#include "playlist/paths/file_details.h"

#include <algorithm>
#include <vector>

#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

bool AnyNameFits(const FileSystem& files, const std::string& path) {
  const std::string pattern = FoldCase(GetFileName(path));
  const std::string folder = path.substr(0, path.size() - GetFileName(path).size());
  const std::vector<FolderEntry> entries = files.ReadFolder(folder.empty() ? files.CurrentFolder() : folder);
  return std::any_of(entries.begin(), entries.end(), [&](const FolderEntry& entry) {
    return !entry.hidden && MatchesFoldedWildcard(FoldCase(entry.name), pattern);
  });
}

}  // namespace

void GetFileDetails(const FileSystem& files, std::string& path, FileDetails& details) {
  details.Path = NormalizePath(path);
  const std::optional<unsigned> attributes = files.Attributes(path);
  details.Exists = attributes.has_value();
  details.IsFolder = details.Exists && (*attributes & (kFolder | kVolumeLabel)) != 0;
  details.IsFile = details.Exists && !details.IsFolder;
  if (!details.IsFolder) details.Extension = details.IsFile ? LowerCase(GetExtension(GetFileName(path))) : "";
}

bool FileExists(const FileSystem& files, const std::string& path) {
  if (path.empty()) return false;
  if (files.Exists(path)) return true;
  if (GetFileName(path).find_first_of("*?") == std::string::npos) return false;
  bool fits = false;
  ResumeNext([&] { fits = AnyNameFits(files, path); });
  return fits;
}

Outcome RenameFileSafe(const FileSystem& files, const std::string& from, const std::string& to) {
  return Attempt([&] { files.Rename(from, to); });
}

Outcome DeleteFileSafe(const FileSystem& files, const std::string& path) {
  return Attempt([&] { files.DeleteFile(path); });
}

Outcome CopyFileSafe(const FileSystem& files, const std::string& source, const std::string& target) {
  return Attempt([&] { files.CopyFile(source, target); });
}

}  // namespace qublet

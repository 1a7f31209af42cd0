#include "playlist/paths/collections.h"

#include <algorithm>
#include <unordered_set>

#include "playlist/paths/existing_files.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

// The path with every occurrence of "\" and its file name removed.
std::string FolderWithoutSlash(const std::string& path) {
  return ReplaceAll(path, "\\" + GetFileName(path), "");
}

// Each different folder once, and the one of the longest text, the later one on a tie.
struct Folders {
  std::unordered_set<std::string> all;
  std::string longest;
};

Folders FoldersOf(const Collection& files) {
  Folders folders;
  std::size_t longest = 0;
  std::string previous;
  for (const std::string& path : files) {
    std::string folder = FolderWithoutSlash(path);
    if (folder == previous) continue;
    if (const std::size_t length = CharacterCount(folder); length >= longest) {
      longest = length;
      folders.longest = folder;
    }
    folders.all.insert(folder);
    previous = std::move(folder);
  }
  return folders;
}

// How many leading parts of `longest`, at most `depth`, occur in `folder`. The parts inside the beginning that both
// have in common need no search.
std::size_t SharedDepth(const std::string& folder, const std::string& longest, const Collection& parts,
                        std::size_t depth) {
  const auto differ = std::mismatch(folder.begin(), folder.end(), longest.begin(), longest.end());
  const auto common = static_cast<std::size_t>(differ.first - folder.begin());
  std::size_t end = 0;  // where the part in question ends in `longest`
  for (std::size_t k = 0; k < depth; ++k) {
    end += parts[k].size();
    if (end > common && !Contains(folder, parts[k])) return k;
    ++end;
  }
  return depth;
}

}  // namespace

void ClearCollection(Collection& items) {
  items.clear();
}

bool CollectFolders(const Collection& files, Collection& folders) {
  const std::size_t before = folders.size();
  for (const std::string& path : files) {
    std::string folder = GetFolderPath(path);
    const bool repeats = folders.size() > before && folders.back() == folder;
    if (!repeats) folders.push_back(std::move(folder));
  }
  return folders.size() > before;
}

bool FilterFilesInFolder(const Collection& files, Collection& results, std::string& folder) {
  const std::size_t before = results.size();
  if (!folder.ends_with('\\')) folder += '\\';
  for (const std::string& path : files)
    if (GetFolderPath(path) == folder) results.push_back(GetFileName(path));
  return results.size() > before;
}

bool FilterLinesContaining(const Collection& lines, std::vector<int>& results, std::string_view text) {
  const std::size_t before = results.size();
  for (std::size_t i = 0; i < lines.size(); ++i)
    if (Contains(lines[i], text)) results.push_back(static_cast<int>(i + 1));
  return results.size() > before;
}

void MakeLinesRelative(Collection& lines, std::string_view base_folder) {
  for (std::string& line : lines) line = RelativeLine(line, base_folder);
}

std::string RelativeLine(std::string_view line, std::string_view base_folder) {
  return ReplaceAll(line, std::string(base_folder) + "\\", "");
}

bool KeepExistingFiles(const FileSystem& files, Collection& lines) {
  const ExistingFiles existing(files);
  return std::erase_if(lines, [&](const std::string& line) { return !existing.Has(line); }) == 0;
}

std::string FindCommonFolder(const Collection& files) {
  if (files.empty()) return "";
  const Folders folders = FoldersOf(files);
  const Collection parts = Split(folders.longest, '\\');
  std::size_t depth = parts.size();
  for (const std::string& folder : folders.all) depth = SharedDepth(folder, folders.longest, parts, depth);

  std::string common;
  for (std::size_t k = 0; k < depth; ++k) common += (k > 0 ? "\\" : "") + parts[k];
  return common;
}

}  // namespace qublet

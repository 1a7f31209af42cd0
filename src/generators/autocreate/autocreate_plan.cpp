#include "generators/autocreate/autocreate_plan.h"

#include "playlist/paths/file_details.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/playlist_name.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

bool IsFolder(const FileSystem& system, std::string path) {
  FileDetails details;
  GetFileDetails(system, path, details);
  return details.IsFolder;
}

// `root` has a "\" at its end, as folders have.
PlannedFolder PlanFolder(const AutoCreateOrder& order, const std::string& path, const std::string& root,
                         const std::string& name) {
  PlannedFolder folder{path, {}};
  if (order.mode == AutoCreateMode::kMyFolderOnly) {
    folder.playlists.push_back({order.MyFolder + name, path});
    return folder;
  }
  const bool both = order.mode == AutoCreateMode::kBothFolders;
  if (both || order.mode == AutoCreateMode::kBaseFolderOnly) folder.playlists.push_back({path + name, ""});
  const bool in_root = order.mode == AutoCreateMode::kRootFolderOnly || (both && path != root);
  if (in_root) folder.playlists.push_back({root + name, ReplaceAll(path, root, ""), both ? 2 : 1});
  return folder;
}

}  // namespace

Collection FoldersThatExist(const FileSystem& system, const Collection& files) {
  Collection folders;
  CollectFolders(files, folders);
  std::erase_if(folders, [&](const std::string& folder) { return !IsFolder(system, folder); });
  return folders;
}

NamesByFolder::NamesByFolder(const Collection& files) {
  for (const std::string& path : files) names_[GetFolderPath(path)].push_back(GetFileName(path));
}

const Collection& NamesByFolder::In(const std::string& folder) const {
  const auto place = names_.find(folder);
  return place == names_.end() ? none_ : place->second;
}

AutoCreatePlan PlanPlaylists(const AutoCreateOrder& order, const std::string& Root, const Clock& clock) {
  const std::string root = Root + "\\";
  AutoCreatePlan plan;
  bool RootListed = false;
  for (const std::string& path : order.Paths) {
    std::string format = order.Parameters;
    const std::string name = MakePlaylistName(format, path, clock);
    plan.folders.push_back(PlanFolder(order, path, root, name));
    const bool announced_already = order.mode == AutoCreateMode::kRootFolderOnly && path == root && RootListed;
    RootListed = RootListed || path == root;
    if (announced_already) continue;
    for (const PlannedPlaylist& playlist : plan.folders.back().playlists) plan.Planned.push_back(playlist.target);
  }
  return plan;
}

Collection LinesOf(const PlannedPlaylist& playlist, const Collection& names) {
  Collection lines;
  for (int round = 0; round < playlist.rounds; ++round) {
    for (const std::string& name : names) lines.push_back(playlist.prefix + name);
  }
  return lines;
}

}  // namespace qublet

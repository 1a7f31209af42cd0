#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "platform/clock.h"
#include "platform/file_system.h"
#include "playlist/paths/collections.h"

namespace qublet {

// Where the playlists of the folders go.
enum class AutoCreateMode { kMyFolderOnly, kBaseFolderOnly, kRootFolderOnly, kBothFolders };

constexpr const char* kDefaultNamingFormat = "%1-%2";

// What playlists are wanted. Folders have a "\" at their end, and a format is one of MakePlaylistName.
struct AutoCreateOrder {
  Collection FileArray;  // the files of the list, in its order
  Collection Paths;      // the folders that are to have a playlist; one may stand here more than once
  AutoCreateMode mode = AutoCreateMode::kBaseFolderOnly;
  std::string MyFolder;  // where kMyFolderOnly puts them
  std::string Parameters = kDefaultNamingFormat;
};

// Those folders of the files that are there. One whose files don't stand together comes again.
Collection FoldersThatExist(const FileSystem& system, const Collection& files);
// What the user is told when there is none.
constexpr const char* kNoFolderToAutoCreate =
    "This Wizard can only work with items that are pointed to correctly in the Playlist...";

// The bare names of files by their folders.
class NamesByFolder {
 public:
  explicit NamesByFolder(const Collection& files);

  // In the order of the files.
  const Collection& In(const std::string& folder) const;

 private:
  std::unordered_map<std::string, Collection> names_;
  const Collection none_;
};

// A playlist of one folder.
struct PlannedPlaylist {
  std::string target;  // "" behind the last "\" where the format gives no name
  std::string prefix;  // what stands in front of each name
  int rounds = 1;      // how often the folder's items come, one round behind the other
};

struct PlannedFolder {
  std::string path;
  std::vector<PlannedPlaylist> playlists;
};

// What a run will write, folder by folder, and the targets that it announces. These are fewer than what it writes
// where the root stands among the folders more than once and only the root is to have playlists.
struct AutoCreatePlan {
  Collection Planned;
  std::vector<PlannedFolder> folders;
};

// `Root` is the folder that all files share, without a "\" at its end. Looks at no disk.
//
//   kMyFolderOnly    a playlist of full paths in MyFolder
//   kBaseFolderOnly  one of bare names in the folder itself
//   kRootFolderOnly  one of names relative to the root, in the root
//   kBothFolders     both of these; the one in the root has each folder's items twice. The root's own file is written
//                    once, as the one of a folder.
AutoCreatePlan PlanPlaylists(const AutoCreateOrder& order, const std::string& Root, const Clock& clock);

Collection LinesOf(const PlannedPlaylist& playlist, const Collection& names);

}  // namespace qublet

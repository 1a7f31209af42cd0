#include "player/preview.h"

#include <unordered_set>

#include "player/hand_over.h"
#include "playlist/paths/folder_walk.h"
#include "playlist/paths/path_text.h"
#include "playlist/row_paths.h"

namespace qublet {

struct Preview::Selection {
  int count = 0;
  int first = 0;       // index of the first selected row
  Collection folders;  // in the order in which they first come
};

Preview::Selection Preview::Selected(bool folders) const {
  Selection selection;
  std::unordered_set<std::string> seen;
  for (int i = 1; i <= document_.ListView1.Count(); ++i) {
    const Row& row = document_.ListView1.At(i);
    if (!row.selected) continue;
    if (++selection.count == 1) selection.first = i;
    const std::string path = row.RealPath();
    const std::string folder = FolderAsItStands(path);
    if (folders && seen.insert(folder).second) selection.folders.push_back(folder);
  }
  return selection;
}

void Preview::FillFileArray(std::int16_t mode, const Selection& selection) {
  DestroyFileArray(document_);
  switch (mode) {
    case kPlayList:
      document_.FileArray = RealPathsOf(document_.ListView1, WhichRows::kAll);
      break;
    case kPlaySelected:
      document_.FileArray = RealPathsOf(document_.ListView1, WhichRows::kSelected);
      break;
    case kPlayFolder:
      for (const std::string& folder : selection.folders) {
        for (const std::string& filter : FileFilters())
          ListFolderFiles(services_.files, folder, filter, document_.FileArray);
      }
      break;
    case kPlayFrom:
      for (int i = selection.first; i <= document_.ListView1.Count(); ++i)
        document_.FileArray.push_back(document_.ListView1.At(i).RealPath());
      break;
    default:
      break;
  }
}

bool Preview::HandOver() {
  const std::string playlist = WriteTempPlaylist(services_, program_folder_, document_.FileArray);
  if (!playlist.empty()) return services_.shell.Open(playlist);
  bool started = false;
  for (const std::string& item : document_.FileArray) started |= services_.shell.OpenAudio(item);
  return started;
}

bool Preview::Play(PreviewMode mode) {
  std::int16_t number = mode;
  return PrevM3U(number);
}

bool Preview::PrevM3U(std::int16_t& mode) {
  if (document_.ListView1.Count() == 0) return false;
  bool started = false;
  const WaitCursor wait(services_.feedback);
  ResumeNext([&] {
    const Selection selection = Selected(mode == kPlayFolder);
    if (selection.count == 0) mode = kPlayList;
    FillFileArray(mode, selection);
    KeepExistingFiles(services_.files, document_.FileArray);
    if (document_.FileArray.empty()) {
      services_.dialogs.ShowMessage(
          "You cannot preview the item(s) because they are pointed to incorrectly.\r"
          "Use 'Purge Playlist Entries' to remove or relocate the missing items..",
          MessageIcon::kExclamation, MessageButtons::kOk);
      return;
    }
    started = HandOver();
  });
  return started;
}

}  // namespace qublet

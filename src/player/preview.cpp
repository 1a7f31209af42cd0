#include "player/preview.h"

#include <unordered_set>

#include "playlist/m3u_lines.h"
#include "playlist/own_playlists.h"
#include "playlist/paths/folder_walk.h"

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
    const std::string& folder = row.cells[kPath];
    if (folders && seen.insert(folder).second) selection.folders.push_back(folder);
  }
  return selection;
}

void Preview::FillFileArray(std::int16_t mode, const Selection& selection) {
  DestroyFileArray(document_);
  switch (mode) {
    case kPlayList:
      items_.SaveFileArrayFromList(true);
      break;
    case kPlaySelected:
      items_.SaveFileArrayFromList(false);
      break;
    case kPlayFolder:
      for (const std::string& folder : selection.folders) {
        for (const std::string& filter : FileFilters())
          ListFolderFiles(services_.files, folder, filter, document_.FileArray);
      }
      break;
    case kPlayFrom:
      for (int i = selection.first; i <= document_.ListView1.Count(); ++i)
        document_.FileArray.push_back(document_.ListView1.At(i).FullPath());
      break;
    default:
      break;
  }
}

// The playlist to be opened; "" when it couldn't be written.
std::string Preview::WritePlaylist() {
  const std::string own = TempPlaylist(program_folder_);
  if (!WritePlainLines(services_.files, own, document_.FileArray)) return "";
  std::string playlist;
  ResumeNext([&] {
    const std::string folder = services_.shell.HandOverFolder();
    const std::string twin = folder + "\\tmp.m3u8";
    if (folder.empty()) {
      playlist = own;
    } else if (WriteHandOver(services_.files, twin, document_.FileArray)) {
      playlist = twin;
    }
  });
  return playlist;
}

void Preview::HandOver() {
  const std::string playlist = WritePlaylist();
  if (!playlist.empty()) {
    services_.shell.Open(playlist);
    return;
  }
  for (const std::string& item : document_.FileArray) services_.shell.Open(item);
}

void Preview::Play(PreviewMode mode) {
  std::int16_t number = mode;
  PrevM3U(number);
}

void Preview::PrevM3U(std::int16_t& mode) {
  if (document_.ListView1.Count() == 0) return;
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
    HandOver();
  });
}

}  // namespace qublet

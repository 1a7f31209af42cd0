#include "generators/bookmarks/player_bookmarks.h"

#include "generators/bookmarks/bookmark_titles.h"
#include "playlist/no_items.h"
#include "playlist/paths/file_details.h"
#include "playlist/row_paths.h"

namespace qublet {

void PlayerBookmarks::Tell(const std::string& text, MessageIcon icon) {
  engine_.services.dialogs.ShowMessage(text, icon, MessageButtons::kOk);
}

bool PlayerBookmarks::LocateBookmarkFile() {
  const std::string& known = document_.WinampBookmarkFile;
  std::optional<std::string> chosen =
      engine_.services.dialogs.ShowOpen({known.empty() ? "winamp.bm" : known, "Bookmark Files (*.bm)|*.bm|", "bm"});
  if (!chosen) return false;
  FileDetails details;
  GetFileDetails(engine_.services.files, *chosen, details);
  if (!details.IsFile) {
    Tell(details.Path + " is not valid.", MessageIcon::kExclamation);
    return false;
  }
  document_.WinampBookmarkFile = *chosen;
  return true;
}

// Asks until there is one or the user has none.
bool PlayerBookmarks::FindBookmarkFile() {
  FileDetails details;
  while (true) {
    GetFileDetails(engine_.services.files, document_.WinampBookmarkFile, details);
    if (details.Exists) return true;
    Tell("Could not find the Bookmark file, please locate it. You will only need to do this once.",
         MessageIcon::kExclamation);
    if (!LocateBookmarkFile()) return false;
  }
}

void PlayerBookmarks::MToolsLoadWinamp_Click() {
  if (!FindBookmarkFile()) return;
  const WaitCursor wait(engine_.services.feedback);
  engine_.items.AddStuff(document_.WinampBookmarkFile, true);
}

void PlayerBookmarks::MToolsSaveWinamp_Click() {
  const Services& services = engine_.services;
  if (document_.ListView1.Count() == 0) {
    ShowNoItemsMessage(services.dialogs);
    return;
  }
  if (!FindBookmarkFile()) return;
  const std::string& path = document_.WinampBookmarkFile;
  if (!CopyFileSafe(services.files, path, BackupOf(path))) {
    Tell("The process failed because a backup copy of the Bookmarks file could not be created!",
         MessageIcon::kExclamation);
    return;
  }
  Tell("The program just created a backup of the Bookmark file as " + BackupOf(path), MessageIcon::kInformation);
  Outcome written;
  {
    const WaitCursor wait(services.feedback);
    const Collection rows = RealPathsOf(document_.ListView1, WhichRows::kAll);
    written = BuildBookmarkTitles(services.files, path, rows, services.feedback);
  }
  if (services.feedback.Stopped()) return;
  if (written)
    Tell("The Bookmark file was successfully updated. You may need to restart WinAmp to view the changes.",
         MessageIcon::kInformation);
  else
    Tell("Unable to write to the bookmark file.", MessageIcon::kStop);
}

}  // namespace qublet

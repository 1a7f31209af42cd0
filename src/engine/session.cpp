#include "engine/session.h"

#include "platform/file_time.h"
#include "playlist/m3u_lines.h"
#include "playlist/own_playlists.h"
#include "playlist/paths/existing_files.h"
#include "playlist/paths/file_details.h"
#include "playlist/paths/text_files.h"
#include "playlist/playlist_lines.h"
#include "playlist/recent_files.h"
#include "playlist/row_paths.h"
#include "settings/kept_values.h"

namespace qublet {

void Session::Begin() {
  first_start_ = IsFirstStart(services_.store, places_.AppKey);
  const std::string& program = places_.program;
  Keep(kProgramPath, program.empty() ? places_.program_folder + "\\QUBLET20.exe" : program);
}

void Session::RestoreOrBeginAnew() {
  if (!first_start_) return SetFormState(false);
  settings_ = AppSettings{};
  LoadDefaultSettings(settings_, window_->DefColumnWidths());
  window_->ApplyQUBLETSettings();
  SetFormState(true);
}

void Session::SetFormState(bool SetReg) {
  const WaitCursor wait(services_.feedback);
  SetReg ? StoreState() : RestoreState();
}

void Session::StoreState() {
  ResumeNext([&] { services_.store.SaveSettings(places_.AppKey, StoredRecentFiles(document_.RecentFiles)); });
  Keep(kWinampBookmarkFile, document_.WinampBookmarkFile);
  for (const std::string& file : document_.TempFiles) DeleteFileSafe(services_.files, file);
  if (!settings_.V && !first_start_) return;
  if (StoreList()) recovery_.Drop();
  StoreTwin();
  Keep(kWorkFolder, document_.WorkFolder);
  Keep(kMaximised, window_->Maximised() ? "1" : "0");
  TakeWindowState();
  SaveSettings(services_.store, places_.AppKey, settings_, services_.startup, LastPlaylist(places_.program_folder));
}

void Session::RestoreState() {
  LoadRecord();
  if (settings_.V) ResumeNext([&] { RestoreWorkFolder(); });
  RestoreRecentFiles();
  view_.RefreshRecentMenu();
  document_.WinampBookmarkFile = Kept(kWinampBookmarkFile);
  window_->ApplyQUBLETSettings();
  items_.MEditSelNone_Click();
  window_->Relayout();
}

void Session::ApplyRecord() {
  window_->ApplyQUBLETSettings();
  view_.RefreshRecentMenu();
  view_.Refresh();
}

void Session::TellOfSettingsNotKept() {
  const Outcome kept = services_.store.CanKeep(places_.AppKey);
  if (!kept) services_.feedback.ShowRemark("Settings aren't kept: " + kept.Reason());
}

void Session::ForgetRecentFiles() {
  const std::vector<std::string> nothing(kRecentMenuRoom);
  ResumeNext([&] { services_.store.SaveSettings(places_.AppKey, StoredRecentFiles(nothing)); });
}

bool Session::RestoreLastList() {
  const std::string last = LastPlaylist(places_.program_folder);
  const auto stored = LastWrite(services_.files, last);
  for (const FoundList& list : recovery_.Find()) {
    if (stored && list.written < *stored) break;
    if (recovery_.Restore(list.path, items_)) return true;
    if (items_.Stopped()) return false;
  }
  // Where paths have drives, the list may be one that another program wrote.
  OwnFormHasDrives(services_.files) ? items_.AddStuff(last, false) : items_.AddOwnPlaylist(last);
  return false;
}

// True when the file holds the list.
bool Session::StoreList() {
  const Collection paths = PathsOf(document_.ListView1, WhichRows::kAll);
  // An empty list leaves the old file: the next start brings back the list before it.
  if (paths.empty()) return false;
  return static_cast<bool>(WritePlainLines(services_.files.OwnFiles(), LastPlaylist(places_.program_folder), paths));
}

void Session::StoreTwin() {
  const FileSystem& files = services_.files.OwnFiles();
  const std::string last = LastPlaylist(places_.program_folder);
  const std::string twin = services_.startup.FileToOpen(last);
  Collection lines;
  if (settings_.WINSTART && twin != last && ReadLinesFromFile(files, lines, last)) WriteHandOver(files, twin, lines);
}

void Session::LoadRecord() {
  settings_ = AppSettings{};
  LoadDefaultSettings(settings_, window_->DefColumnWidths());
  LoadSettings(services_.store, places_.AppKey, settings_, window_->Screen());
}

void Session::RestoreWorkFolder() {
  const std::string folder = Kept(kWorkFolder);
  if (!FileExists(services_.files, folder)) return;
  document_.WorkFolder = folder;
  // "&Add Item" may have left a file's name here, which no one can change to.
  services_.files.SetCurrentFolder(folder);
}

void Session::RestoreRecentFiles() {
  const ExistingFiles existing(services_.files);
  for (const std::string& path : LoadRecentFiles(services_.store, places_.AppKey, settings_.RCount)) {
    if (!settings_.RPurge || existing.Has(path)) document_.RecentFiles.push_back(path);
  }
}

}  // namespace qublet

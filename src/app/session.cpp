#include "app/session.h"

#include "playlist/m3u_lines.h"
#include "playlist/paths/file_details.h"
#include "playlist/paths/text_files.h"
#include "settings/kept_values.h"

namespace qublet {
Session::Session(Document& document, AppSettings& settings, Items& items, FileSystem& files, SettingsStore& store,
                 StartupEntries& startup, Places places, Window& window)
    : document_(document),
      settings_(settings),
      items_(items),
      files_(files),
      store_(store),
      startup_(startup),
      places_(std::move(places)),
      window_(window),
      first_start_(IsFirstStart(store, places_.AppKey)) {
  const std::string& program = places_.program;
  SaveSetting(store_, places_.AppKey, kProgramPath,
              program.empty() ? places_.program_folder + "\\QUBLET20.exe" : program);
}

void Session::BeginFirstStart() {
  settings_ = AppSettings{};
  LoadDefaultSettings(settings_, window_.DefColumnWidths());
  window_.ApplyQUBLETSettings();
  SetFormState(true);
}

void Session::SetFormState(bool SetReg) {
  if (SetReg) {
    ResumeNext([&] { store_.SaveSettings(places_.AppKey, StoredRecentFiles(document_.RecentFiles)); });
    SaveSetting(store_, places_.AppKey, kWinampBookmarkFile, document_.WinampBookmarkFile);
    for (const std::string& file : document_.TempFiles) DeleteFileSafe(files_, file);
    if (settings_.V || first_start_) {
      StoreList();
      StoreTwin();
      SaveSetting(store_, places_.AppKey, kWorkFolder, document_.WorkFolder);
      window_.CopyState(settings_);
      SaveSettings(store_, places_.AppKey, settings_, startup_, LastPlaylist());
    }
  } else {
    LoadRecord();
    if (settings_.V) ResumeNext([&] { RestoreWorkFolder(); });
    RestoreRecentFiles();
    window_.ShowRecentFiles();
    document_.WinampBookmarkFile = GetSetting(store_, places_.AppKey, kWinampBookmarkFile);
    window_.ApplyQUBLETSettings();
    items_.MEditSelNone_Click();
    window_.Relayout();
  }
}

void Session::StoreList() {
  DestroyFileArray(document_);
  items_.SaveFileArrayFromList(true);
  // An empty list leaves the old file: the next start brings back the list before it.
  if (!document_.FileArray.empty()) WriteLinesToFile(files_, LastPlaylist(), document_.FileArray);
}

void Session::StoreTwin() {
  const std::string twin = startup_.FileToOpen(LastPlaylist());
  Collection lines;
  if (settings_.WINSTART && twin != LastPlaylist() && ReadLinesFromFile(files_, lines, LastPlaylist()))
    WriteHandOver(files_, twin, lines);
}

void Session::LoadRecord() {
  settings_ = AppSettings{};
  LoadDefaultSettings(settings_, window_.DefColumnWidths());
  LoadSettings(store_, places_.AppKey, settings_, window_.Screen());
}

void Session::RestoreWorkFolder() {
  const std::string folder = GetSetting(store_, places_.AppKey, kWorkFolder);
  if (!FileExists(files_, folder)) return;
  document_.WorkFolder = folder;
  // "&Add Item" may have left a file's name here, which no one can change to.
  files_.SetCurrentFolder(folder);
}

void Session::RestoreRecentFiles() {
  for (const std::string& path : LoadRecentFiles(store_, places_.AppKey, settings_.RCount)) {
    if (!settings_.RPurge || FileExists(files_, path)) document_.RecentFiles.push_back(path);
  }
}

}  // namespace qublet

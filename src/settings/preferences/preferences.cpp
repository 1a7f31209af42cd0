#include "settings/preferences/preferences.h"

#include "playlist/own_playlists.h"
#include "playlist/paths/file_details.h"
#include "settings/schemes/look_file.h"
#include "settings/startup.h"

namespace qublet {
namespace {

constexpr const char* kDefaults = "Load defaults for all options into the preferences dialogue?";
constexpr const char* kFlushWarning =
    "WARNING!:\r\n"
    "This macro will remove all registry settings and temporary files. \r\n"
    "You will lose ALL settings made and this macro should only be\r\n"
    "used if the current settings stored are causing problems, or\r\n"
    "an update requires that registry settings from older versions\r\n"
    "be removed. This process is NOT undo-able and the application\r\n"
    "will terminate if you click 'YES' in the next dialogue...";
constexpr const char* kFlushQuestion =
    "Are you sure you want to continue with the removal of ALL settings and temporary files?";
constexpr const char* kFlushed = "The application will now close...";
constexpr const char* kNeitherShown = "Either the Toolbar or Menu must be visible...";

constexpr const char* kLookFilter = "Interface Settings (*.dps)|*.dps|";
constexpr const char* kLookExtension = "dps";

bool IsFile(const FileSystem& files, const std::string& path) {
  const std::optional<unsigned> attributes = files.Attributes(path);
  return attributes && (*attributes & kFolder) == 0;
}

}  // namespace

MessageAnswer Preferences::Ask(const char* text, MessageIcon icon, MessageButtons buttons) const {
  return engine_.services.dialogs.ShowMessage(text, icon, buttons);
}

const AppSettings& Preferences::Open() {
  engine_.session.TakeWindowState();
  return engine_.settings;
}

void Preferences::StoreOptionControls(const std::function<void(AppSettings& settings)>& take) {
  engine_.session.TakeWindowState();
  take(engine_.settings);
  engine_.session.ApplyRecord();
}

std::optional<AppSettings> Preferences::cmdDefault_Click() {
  if (Ask(kDefaults, MessageIcon::kQuestion, MessageButtons::kYesNo) != MessageAnswer::kYes) return std::nullopt;
  AppSettings settings;
  LoadDefaultSettings(settings, {});
  return settings;
}

void Preferences::cmdFlushReg_Click() {
  Ask(kFlushWarning, MessageIcon::kStop, MessageButtons::kOk);
  if (Ask(kFlushQuestion, MessageIcon::kQuestion, MessageButtons::kYesNo) != MessageAnswer::kYes) return;
  engine_.session.ForgetRecentFiles();
  RemoveFromStartup(engine_.services.startup, LastPlaylist(engine_.program_folder));
  RemoveOwnFiles();
  Ask(kFlushed, MessageIcon::kInformation, MessageButtons::kOk);
  engine_.session.EndUnsaved();
}

void Preferences::RemoveOwnFiles() {
  const FileSystem& files = engine_.services.files;
  for (const std::string& file : engine_.document.TempFiles) DeleteFileSafe(files, file);
  for (const char* name : {"last.m3u", "tmp.m3u", "tmp.bmp", "tmp.htm", "tmp.txt"})
    DeleteFileSafe(files, engine_.program_folder + "\\" + name);
}

bool Preferences::MenuStays(bool menu, bool toolbar) {
  if (menu || toolbar) return menu;
  Ask(kNeitherShown, MessageIcon::kInformation, MessageButtons::kOk);
  return true;
}

std::optional<std::string> Preferences::Command1_Click(const std::string& present) {
  auto folder = engine_.services.dialogs.BrowseForFolder("Select Folder...", present, false);
  // A pattern is put behind it.
  if (folder && !folder->ends_with('\\')) *folder += '\\';
  return folder;
}

// Of a file that isn't there every field is zero.
void Preferences::schLoad_Click(Look& look) {
  const auto path =
      engine_.services.dialogs.ShowOpen({engine_.program_folder + "\\*.dps", kLookFilter, kLookExtension});
  if (!path) return;
  ResumeNext([&] {
    const FileSystem& files = engine_.services.files;
    TakeLook(IsFile(files, *path) ? ReadLook(files, *path) : Look(), look);
  });
}

void Preferences::schSave_Click(const Look& look) {
  const auto path =
      engine_.services.dialogs.ShowSave({engine_.program_folder + "\\*.dps", kLookFilter, kLookExtension});
  if (path) ResumeNext([&] { WriteLook(engine_.services.files, *path, look).OrThrow(); });
}

}  // namespace qublet

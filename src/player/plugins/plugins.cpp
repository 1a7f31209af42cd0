#include "player/plugins/plugins.h"

#include <algorithm>

#include "player/hand_over.h"
#include "playlist/paths/file_details.h"
#include "playlist/paths/folder_walk.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"
#include "playlist/row_paths.h"

namespace qublet {
namespace {

constexpr const char* kApplication = "Velmora Plugins";
// Characters.
constexpr std::size_t kLongestText = 256;
constexpr std::size_t kLongestPath = 1024;

Plugin ReadSlot(const SettingsStore& store, std::int16_t index) {
  const auto read = [&, section = std::to_string(index)](const char* key, std::size_t longest) {
    return FirstCharacters(store.GetSetting(kApplication, section, key), longest);
  };
  Plugin plugin{Trim(read("name", kLongestText)), Trim(read("desc", kLongestText)), read("insl", kLongestPath)};
  return plugin.Name.empty() ? Plugin() : plugin;
}

// The program in drive form. Plug-ins may enter themselves by this system's own path.
std::string ProgramOf(const Plugin& plugin, const FileSystem& files) {
  std::string program = Trim(plugin.InstallPath);
  if (program.starts_with('/')) ResumeNext([&] { program = files.FromNative(program); });
  return program;
}

}  // namespace

std::string PluginCaption(const Plugin& plugin) {
  return plugin.Name + " - " + plugin.Description;
}

void Plugins::LoadPluginMenu() {
  for (std::int16_t i = 1; i <= kPluginCount; ++i)
    slots_[static_cast<std::size_t>(i)] = ReadSlot(engine_.services.store, i);
}

bool Plugins::IsEmpty() const {
  return std::ranges::all_of(slots_, &std::string::empty, &Plugin::Name);
}

void Plugins::Tell(const std::string& text) const {
  engine_.services.dialogs.ShowMessage(text, MessageIcon::kStop, MessageButtons::kOk);
}

void Plugins::plug_Click(std::int16_t Index) {
  const Plugin& plugin = Slot(Index);
  const Services& services = engine_.services;
  const std::string program = ProgramOf(plugin, services.files);
  if (!FileExists(services.files, program)) return Tell("Could not load the " + plugin.Name + " Plugin.");
  engine_.document.FileArray = RealPathsOf(engine_.document.ListView1, WhichRows::kSelected);
  const std::string playlist = WriteTempPlaylist(services, engine_.program_folder, engine_.document.FileArray);
  if (playlist.empty()) return Tell("Failed to create temp file for plugin transaction.");
  ResumeNext([&] { services.shell.Start(program, services.files.ToNative(playlist)); });
}

void Plugins::RegisterAccessoryTools() {
  if (engine_.program.empty()) return;
  const Services& services = engine_.services;
  Collection tools;
  WalkFolder(services.files, services.feedback,
             engine_.program.substr(0, engine_.program.rfind('\\') + 1) + "plugins", {"QUBTGL10.exe", "QUBTGL10"},
             tools, true, true);
  for (const std::string& tool : tools) {
    if (services.shell.CanStart(tool)) services.shell.Start(tool, "-register");
  }
}

}  // namespace qublet

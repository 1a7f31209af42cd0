#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "engine/engine.h"

namespace qublet {

// A program of its own that entered itself in the settings store. docs/plugins.md tells its authors how.
struct Plugin {
  std::string Name;  // "" for a slot that nobody has
  std::string Description;
  std::string InstallPath;  // of the program
};

inline constexpr std::int16_t kPluginCount = 9;

// The plug-ins as the store has them under "Velmora Plugins". Numbers are those of the slots, 1 to 9; a gap stays
// one.
class Plugins {
 public:
  explicit Plugins(Engine& engine) : engine_(engine) {}

  // Reads all slots anew.
  void LoadPluginMenu();
  const Plugin& Slot(std::int16_t Index) const { return slots_.at(static_cast<std::size_t>(Index)); }
  bool IsEmpty() const;

  // Writes the selected rows to "tmp.m3u" and starts the plug-in with that file (on Linux with its twin), without
  // waiting. What can't be done is told.
  void plug_Click(std::int16_t Index);

  // Has the accessory tools in "plugins" beside the program enter themselves, without waiting or a word. Nothing is
  // started when it isn't known where the program is.
  void RegisterAccessoryTools();

 private:
  void Tell(const std::string& text) const;

  Engine& engine_;
  std::array<Plugin, kPluginCount + 1> slots_;
};

// "Name - Description", as the menu calls it.
std::string PluginCaption(const Plugin& plugin);

}  // namespace qublet

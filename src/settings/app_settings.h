#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/settings_store.h"
#include "platform/startup_entry.h"

namespace qublet {

inline constexpr std::size_t kStoredColumns = 9;
// Widths of the list's columns 1 to 9, in pixels at 96 dpi.
using ColumnWidths = std::array<std::int16_t, kStoredColumns>;

// All that the user can set, one field a key, named by the keys (see setting_rows.h). The first value of each field
// is no default: those come from LoadDefaultSettings.
struct AppSettings {
  bool V = false;
  bool RESPLAYLIST = false;
  bool WINSTART = false;
  bool Visible = false;
  bool SA = false;
  bool Flat = false;
  bool ThreeD = false;  // "3D"
  bool TA = false;
  std::int16_t Align = 0;  // 1 top, 2 bottom
  std::string Name;
  std::int16_t Size = 0;  // in points
  bool Italic = false;
  bool Bold = false;
  bool Strikethrough = false;
  bool Underline = false;
  std::int32_t BC = 0;  // colours have red in the low byte
  std::int32_t FC = 0;
  std::array<bool, kStoredColumns> TX{};
  ColumnWidths TV{};
  std::int16_t T = 0;  // the window's place and size are in twips, 1/1440 inch
  std::int16_t L = 0;
  std::int16_t W = 0;
  std::int16_t H = 0;
  bool PROMPTSORT = false;
  bool PROMPTMISS = false;
  bool DBLCLKACTN = false;
  std::int16_t SHUFFLEINT = 0;
  bool GRID = false;
  bool HOTTRACK = false;
  std::int16_t RCount = 0;
  bool RPath = false;
  bool RPurge = false;
  bool AUDate = false;
  bool SActi = false;
  std::string Idir;
  bool PLTSC = false;
  std::int32_t PLTSP = 0;  // megabytes
  bool PLTTC = false;
  std::int32_t PLTTP = 0;  // seconds
  bool PLTCC = false;
  std::int32_t PLTCP = 0;  // items
  std::string DefSName;
  bool operator==(const AppSettings&) const = default;
};

// Of the whole screen, in twips.
struct ScreenSize {
  std::int32_t width = 0;
  std::int32_t height = 0;
};

// Writes only the fields whose default isn't False, 0 or "", so the record should start out fresh.
void LoadDefaultSettings(AppSettings& settings, const ColumnWidths& DefColumnWidths);

// Reads every key into its field. A value that is absent or can't be read leaves its field as it is. Afterwards menu
// or toolbar is shown, and the window stands on the screen.
void LoadSettings(const SettingsStore& store, const std::string& application, AppSettings& settings,
                  const ScreenSize& screen);

// Every field as the store has it.
std::vector<Setting> StoredSettings(const AppSettings& settings);

// Keeps every field, and makes or removes the startup entry for `last_playlist`, as WINSTART says. Failures are
// nobody's business.
void SaveSettings(SettingsStore& store, const std::string& application, const AppSettings& settings,
                  StartupEntries& startup, const std::string& last_playlist);

}  // namespace qublet

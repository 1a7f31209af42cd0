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
  bool V = false;            // list, work folder and settings are kept at exit
  bool RESPLAYLIST = false;  // the last list comes back at the start
  bool WINSTART = false;     // the last list is opened when the user logs in
  bool Visible = false;      // the menus are shown
  bool SA = false;           // the status bar is shown
  bool Flat = false;         // the toolbar's buttons are flat, else raised
  bool ThreeD = false;       // "3D": the toolbar has a frame that gives depth
  bool TA = false;           // the toolbar is shown
  std::int16_t Align = 0;    // the toolbar's edge: 1 top, 2 bottom
  std::string Name;          // the list's font: its family
  std::int16_t Size = 0;     // in points
  bool Italic = false;
  bool Bold = false;
  bool Strikethrough = false;
  bool Underline = false;
  std::int32_t BC = 0;                    // the list's background; colours have red in the low byte
  std::int32_t FC = 0;                    // the list's text
  std::array<bool, kStoredColumns> TX{};  // the column is shown
  ColumnWidths TV{};
  std::int16_t T = 0;           // the main window's top, in twips, 1/1440 inch, as the three behind it
  std::int16_t L = 0;           // left
  std::int16_t W = 0;           // width
  std::int16_t H = 0;           // height
  bool PROMPTSORT = false;      // a sort asks first
  bool PROMPTMISS = false;      // kept and edited; nothing acts on it
  bool DBLCLKACTN = false;      // a double click plays the selected rows, else from the first of them on
  std::int16_t SHUFFLEINT = 0;  // how often a shuffle goes through the rows, less one
  bool GRID = false;            // lines between rows and columns
  bool HOTTRACK = false;        // the row under the pointer is underlined
  std::int16_t RCount = 0;      // how many recent files are remembered
  bool RPath = false;           // recent files are shown with their folders
  bool RPurge = false;          // recent files that are gone are left out at the start
  bool AUDate = false;          // a newer version is asked for by itself
  bool SActi = false;           // the toolbar saves with relative paths, else with full ones
  std::string Idir;             // where an import starts
  bool PLTSC = false;           // a warning when the list's size
  std::int32_t PLTSP = 0;       // reaches so many megabytes
  bool PLTTC = false;           // a warning when its length
  std::int32_t PLTTP = 0;       // reaches so many seconds
  bool PLTCC = false;           // a warning when it
  std::int32_t PLTCP = 0;       // has so many items
  std::string DefSName;         // naming format of the name that a save proposes
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

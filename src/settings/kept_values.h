#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/settings_store.h"

namespace qublet {

// What is kept from one session to the next beside the settings record.

struct SettingAddress {
  std::string_view section;
  std::string_view key;
};

inline constexpr SettingAddress kProgramPath = {"Startup", "insl"};  // written at each start, for plug-ins
inline constexpr SettingAddress kWinampBookmarkFile = {"RF", "W"};
inline constexpr SettingAddress kWorkFolder = {"RF", "Wkdir"};
inline constexpr SettingAddress kTagSignature = {"ID3", "SIG"};
inline constexpr SettingAddress kToolbarLayout = {"PS", "Toolbar1"};
inline constexpr SettingAddress kMaximised = {"PS", "Maximised"};
inline constexpr SettingAddress kShowTips = {"Options", "Show Tips at Startup"};

std::string GetSetting(const SettingsStore& store, const std::string& application, const SettingAddress& address);
// Gives up quietly.
void SaveSetting(SettingsStore& store, const std::string& application, const SettingAddress& address,
                 const std::string& value);

// Whether this user has never started the program before: nothing has been written at kProgramPath.
bool IsFirstStart(const SettingsStore& store, const std::string& application);

// The recent files, oldest first. In the store the newest always has the key "20"; the keys ahead of the oldest keep
// what they hold.
std::vector<Setting> StoredRecentFiles(const std::vector<std::string>& recent_files);
// The last `RCount` keys, empty values left out.
std::vector<std::string> LoadRecentFiles(const SettingsStore& store, const std::string& application,
                                         std::int16_t RCount);

}  // namespace qublet

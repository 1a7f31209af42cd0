#include "settings/app_settings.h"

#include "playlist/paths/text.h"
#include "settings/setting_rows.h"
#include "settings/startup.h"

namespace qublet {
namespace {

bool IsBlank(const SettingValue& value) {
  return value == SettingValue(false) || value == SettingValue(0) || value == SettingValue(std::string());
}

// The window must be reachable: a place outside the screen and a size beyond it go back to the first ones.
void KeepOnScreen(AppSettings& settings, const ScreenSize& screen) {
  AppSettings first;
  LoadDefaultSettings(first, {});
  if (settings.T <= 100 || settings.T >= screen.height - 1000) settings.T = first.T;
  if (settings.L <= 100 || settings.L >= screen.width - 1000) settings.L = first.L;
  if (settings.H >= screen.height) settings.H = first.H;
  if (settings.W >= screen.width) settings.W = first.W;
}

}  // namespace

void LoadDefaultSettings(AppSettings& settings, const ColumnWidths& DefColumnWidths) {
  for (const SettingRow& row : SettingRows()) {
    const std::optional<SettingValue> value = ReadSetting(row, row.default_text);
    if (value && !IsBlank(*value)) row.field.Set(settings, *value);
  }
  for (std::size_t i = 0; i < kStoredColumns; ++i) {
    if (DefColumnWidths[i] != 0) settings.TV[i] = DefColumnWidths[i];
  }
}

void LoadSettings(const SettingsStore& store, const std::string& application, AppSettings& settings,
                  const ScreenSize& screen) {
  for (const SettingRow& row : SettingRows()) {
    const std::string text = store.GetSetting(application, std::string(row.section), std::string(row.key));
    if (const std::optional<SettingValue> value = ReadSetting(row, text)) row.field.Set(settings, *value);
  }
  if (!settings.Visible && !settings.TA) settings.Visible = true;
  KeepOnScreen(settings, screen);
  settings.DefSName = Trim(settings.DefSName);
  if (settings.DefSName.empty()) settings.DefSName = "%0";
}

std::vector<Setting> StoredSettings(const AppSettings& settings) {
  std::vector<Setting> stored;
  for (const SettingRow& row : SettingRows()) {
    stored.push_back({std::string(row.section), std::string(row.key), WriteSetting(row, row.field.Get(settings))});
  }
  return stored;
}

void SaveSettings(SettingsStore& store, const std::string& application, const AppSettings& settings,
                  StartupEntries& startup, const std::string& last_playlist) {
  ResumeNext([&] { store.SaveSettings(application, StoredSettings(settings)); });
  if (settings.WINSTART) {
    AddToStartup(startup, last_playlist);
  } else {
    RemoveFromStartup(startup, last_playlist);
  }
}

}  // namespace qublet

#include "settings/kept_values.h"

#include "platform/failure.h"

namespace qublet {
namespace {

constexpr const char* kRecentSection = "RF";
constexpr int kNewestKey = 20;

}  // namespace

std::string GetSetting(const SettingsStore& store, const std::string& application, const SettingAddress& address) {
  return store.GetSetting(application, std::string(address.section), std::string(address.key));
}

void SaveSetting(SettingsStore& store, const std::string& application, const SettingAddress& address,
                 const std::string& value) {
  ResumeNext([&] { store.SaveSetting(application, std::string(address.section), std::string(address.key), value); });
}

bool IsFirstStart(const SettingsStore& store, const std::string& application) {
  return GetSetting(store, application, kProgramPath).empty();
}

std::vector<Setting> StoredRecentFiles(const std::vector<std::string>& recent_files) {
  std::vector<Setting> stored;
  stored.reserve(recent_files.size());
  int key = kNewestKey - static_cast<int>(recent_files.size());
  for (const std::string& path : recent_files) stored.push_back({kRecentSection, std::to_string(++key), path});
  return stored;
}

std::vector<std::string> LoadRecentFiles(const SettingsStore& store, const std::string& application,
                                         std::int16_t RCount) {
  std::vector<std::string> recent_files;
  for (int key = kNewestKey + 1 - RCount; key <= kNewestKey; ++key) {
    std::string path = store.GetSetting(application, kRecentSection, std::to_string(key));
    if (!path.empty()) recent_files.push_back(std::move(path));
  }
  return recent_files;
}

}  // namespace qublet

#pragma once

#include <map>
#include <tuple>

#include "platform/settings_store.h"

namespace qublet {

// A store that is gone with the process: for a run that must leave nothing behind.
class MemorySettingsStore : public SettingsStore {
 public:
  std::string GetSetting(const std::string& application, const std::string& section,
                         const std::string& key) const override {
    const auto place = values_.find({application, section, key});
    return place == values_.end() ? "" : place->second;
  }

  std::vector<Setting> AllSettings(const std::string& application) const override {
    std::vector<Setting> settings;
    for (const auto& [address, value] : values_) {
      const auto& [owner, section, key] = address;
      if (owner == application) settings.push_back({section, key, value});
    }
    return settings;
  }

  void SaveSettings(const std::string& application, const std::vector<Setting>& settings) override {
    for (const Setting& setting : settings) values_[{application, setting.section, setting.key}] = setting.value;
  }

 private:
  std::map<std::tuple<std::string, std::string, std::string>, std::string> values_;
};

}  // namespace qublet

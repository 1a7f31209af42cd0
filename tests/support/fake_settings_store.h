#pragma once

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "platform/failure.h"
#include "platform/settings_store.h"

namespace qublet {

// A store in memory that notes what it is asked for.
class FakeSettingsStore : public SettingsStore {
 public:
  std::string GetSetting(const std::string& application, const std::string& section,
                         const std::string& key) const override {
    reads.push_back(section + "/" + key);
    for (const Setting& setting : AllSettings(application)) {
      if (setting.section == section && setting.key == key) return setting.value;
    }
    return "";
  }

  std::vector<Setting> AllSettings(const std::string& application) const override {
    const auto found = applications.find(application);
    return found == applications.end() ? std::vector<Setting>() : found->second;
  }

  void SaveSettings(const std::string& application, const std::vector<Setting>& settings) override {
    if (refuses_to_save) throw Failure("the store is read-only");
    ++saves;
    std::vector<Setting>& stored = applications[application];
    for (const Setting& setting : settings) {
      const auto present = std::ranges::find_if(stored, [&](const Setting& candidate) {
        return candidate.section == setting.section && candidate.key == setting.key;
      });
      if (present != stored.end()) {
        present->value = setting.value;
      } else {
        stored.push_back(setting);
      }
    }
  }

  Outcome CanKeep(const std::string& /*application*/) override {
    return refuses_to_save ? Outcome::GivenUp("read-only") : Outcome();
  }

  std::map<std::string, std::vector<Setting>> applications;
  mutable std::vector<std::string> reads;  // "section/key"
  int saves = 0;
  bool refuses_to_save = false;
};

}  // namespace qublet

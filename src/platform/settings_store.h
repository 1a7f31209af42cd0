#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/failure.h"

namespace qublet {

// One text value with its address inside an application.
struct Setting {
  std::string section;
  std::string key;
  std::string value;
  bool operator==(const Setting&) const = default;
};

// The per-user store of text values, addressed by application, section and key. Any text without zero characters can
// be a part of an address or a value. Other processes may change the store at any time; what they write is seen by
// the next call, and keys that a call doesn't name are never lost. One thread at a time.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  // "" for an absent value. Never throws: a store that can't be read is empty.
  virtual std::string GetSetting(const std::string& application, const std::string& section,
                                 const std::string& key) const = 0;
  // Every value of an application, in stored order. Never throws.
  virtual std::vector<Setting> AllSettings(const std::string& application) const = 0;
  // Keeps all the values, so that many cost hardly more than one; what is stored in a file is replaced in one step.
  // Throws Failure when they can't be kept.
  virtual void SaveSettings(const std::string& application, const std::vector<Setting>& settings) = 0;

  // Whether values can be kept now, tried without a change. Done where that isn't known before.
  virtual Outcome CanKeep(const std::string& /*application*/) { return {}; }

  // One value. Throws Failure when it can't be kept.
  void SaveSetting(const std::string& application, const std::string& section, const std::string& key,
                   const std::string& value) {
    SaveSettings(application, {{section, key, value}});
  }
};

// The store of this user on this machine.
std::unique_ptr<SettingsStore> OpenSettingsStore();

}  // namespace qublet

#pragma once

#include <memory>
#include <string>

namespace qublet {

// The per-user store of text values, addressed by application, section and key.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  // "" for an absent value. Never throws: a store that can't be read is empty.
  virtual std::string GetSetting(const std::string& application, const std::string& section,
                                 const std::string& key) const = 0;
  // Throws Failure when the value can't be kept.
  virtual void SaveSetting(const std::string& application, const std::string& section, const std::string& key,
                           const std::string& value) = 0;
};

// The store of this user on this machine.
std::unique_ptr<SettingsStore> OpenSettingsStore();

}  // namespace qublet

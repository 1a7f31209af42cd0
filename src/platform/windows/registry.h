#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/windows/windows_api.h"

namespace qublet {

// Text values of the registry. All texts are UTF-8.

// A key that is closed with its owner.
class RegistryKey {
 public:
  // Makes the key where it is missing. Throws Failure.
  static RegistryKey Create(HKEY root, const std::string& path, REGSAM rights);
  // Nothing when there is no such key or it can't be opened.
  static std::optional<RegistryKey> Open(HKEY root, const std::string& path, REGSAM rights);

  RegistryKey(RegistryKey&& other) noexcept;
  RegistryKey& operator=(RegistryKey&&) = delete;
  ~RegistryKey();

  // Nothing for a value that is absent or no text.
  std::optional<std::string> Text(const std::string& name) const;
  // Throws Failure, also for a text that holds a zero character.
  void SetText(const std::string& name, const std::string& text) const;
  // An absent value is none. Throws Failure.
  void Delete(const std::string& name) const;
  std::vector<std::string> ValueNames() const;
  std::vector<std::string> KeyNames() const;

 private:
  explicit RegistryKey(HKEY key) : key_(key) {}
  HKEY key_;
};

}  // namespace qublet

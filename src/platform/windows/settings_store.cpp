#include "platform/settings_store.h"

#include <map>

#include "platform/failure.h"
#include "platform/windows/registry.h"

namespace qublet {
namespace {

// Registry values under HKEY_CURRENT_USER\Software\Velmora\<application>\<section>. Each value is written by itself,
// so instances don't lose each other's keys. The registry doesn't tell letter case apart.
class RegistrySettingsStore : public SettingsStore {
 public:
  std::string GetSetting(const std::string& application, const std::string& section,
                         const std::string& key) const override {
    std::string value;
    ResumeNext([&] {
      const auto opened = RegistryKey::Open(HKEY_CURRENT_USER, PathOf(application, section), KEY_QUERY_VALUE);
      if (opened) value = opened->Text(key).value_or("");
    });
    return value;
  }

  std::vector<Setting> AllSettings(const std::string& application) const override {
    std::vector<Setting> settings;
    ResumeNext([&] {
      const auto root = RegistryKey::Open(HKEY_CURRENT_USER, Branch(application), KEY_ENUMERATE_SUB_KEYS);
      if (!root) return;
      for (const std::string& section : root->KeyNames()) AddSection(application, section, settings);
    });
    return settings;
  }

  void SaveSettings(const std::string& application, const std::vector<Setting>& settings) override {
    std::map<std::string, RegistryKey> sections;
    for (const Setting& setting : settings) {
      auto opened = sections.find(setting.section);
      if (opened == sections.end()) {
        RegistryKey key = RegistryKey::Create(HKEY_CURRENT_USER, PathOf(application, setting.section), KEY_SET_VALUE);
        opened = sections.emplace(setting.section, std::move(key)).first;
      }
      opened->second.SetText(setting.key, setting.value);
    }
  }

 private:
  // What can't stand in the name of a registry key is written as "%" and two digits, no name at all as "%".
  static std::string KeyName(const std::string& name) {
    std::string escaped = name.empty() ? "%" : "";
    for (const char c : name) escaped += c == '\\' ? "%5c" : c == '%' ? "%25" : c == '\0' ? "%00" : std::string(1, c);
    return escaped;
  }

  static std::string NameOfKey(const std::string& key) {
    std::string name;
    for (std::size_t i = 0; key != "%" && i < key.size(); ++i) {
      const std::string code = key.substr(i, 3);
      const bool escaped = code == "%5c" || code == "%25" || code == "%00";
      name += code == "%5c" ? '\\' : code == "%00" ? '\0' : key[i];
      if (escaped) i += 2;
    }
    return name;
  }

  static std::string Branch(const std::string& application) { return "Software\\Velmora\\" + KeyName(application); }
  static std::string PathOf(const std::string& application, const std::string& section) {
    return Branch(application) + '\\' + KeyName(section);
  }

  static void AddSection(const std::string& application, const std::string& section_key,
                         std::vector<Setting>& settings) {
    const std::string path = Branch(application) + '\\' + section_key;
    const auto opened = RegistryKey::Open(HKEY_CURRENT_USER, path, KEY_QUERY_VALUE);
    if (!opened) return;
    for (const std::string& name : opened->ValueNames()) {
      if (const auto text = opened->Text(name)) settings.push_back({NameOfKey(section_key), name, *text});
    }
  }
};

}  // namespace

std::unique_ptr<SettingsStore> OpenSettingsStore() {
  return std::make_unique<RegistrySettingsStore>();
}

}  // namespace qublet

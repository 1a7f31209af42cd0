#include <cstdint>
#include <cstdlib>
#include <string>

#include "platform/linux/settings_text.h"

using qublet::Setting;
using qublet::SettingsText;

// The input is a settings file. Every value that it holds must survive being written into an empty file, and a new
// value must change nothing else.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  SettingsText text(std::string(reinterpret_cast<const char*>(data), size));
  const std::vector<Setting> all = text.All();

  const std::string whole = text.Text();
  SettingsText copy;
  for (std::size_t i = 0; i < all.size() && i < 50; ++i) {
    copy.Set(all[i]);
    if (copy.Get(all[i].section, all[i].key) != all[i].value) abort();
  }
  text.Set({whole, whole, whole});
  if (SettingsText(text.Text()).Get(whole, whole) != whole) abort();
  for (const Setting& setting : all) {
    const bool is_new_one = setting.section == whole && setting.key == whole;
    if (!is_new_one && text.Get(setting.section, setting.key) != setting.value) abort();
  }
  return 0;
}

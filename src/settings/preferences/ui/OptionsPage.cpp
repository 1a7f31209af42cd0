#include "settings/preferences/ui/OptionsPage.h"

#include "settings/preferences/ui/option_controls.h"

namespace qublet {

void OptionsPage::Load(const AppSettings& settings) {
  for (const SettingRow& row : SettingRows()) {
    if (row.place.page == page_) ShowOption(*this, row, row.field.Get(settings));
  }
}

void OptionsPage::Store(AppSettings& settings) const {
  for (const SettingRow& row : SettingRows()) {
    if (row.place.page != page_) continue;
    if (const std::optional<SettingValue> value = ShownOption(*this, row)) row.field.Set(settings, *value);
  }
}

}  // namespace qublet

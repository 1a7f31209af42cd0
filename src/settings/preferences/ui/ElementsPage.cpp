#include "settings/preferences/ui/ElementsPage.h"

namespace qublet {

ElementsPage::ElementsPage(QWidget* parent) : OptionsPage(SettingPage::kElements, parent) {
  setupUi(this);
}

void ElementsPage::Attach(Preferences& preferences) {
  const auto clicked = [this, &preferences] {
    chkShowMenu->setChecked(preferences.MenuStays(chkShowMenu->isChecked(), chkShowToolbar->isChecked()));
  };
  connect(chkShowMenu, &QCheckBox::clicked, this, clicked);
  connect(chkShowToolbar, &QCheckBox::clicked, this, clicked);
}

}  // namespace qublet

#include "settings/preferences/ui/StartupPage.h"

namespace qublet {

StartupPage::StartupPage(QWidget* parent) : OptionsPage(SettingPage::kStartup, parent) {
  setupUi(this);
}

}  // namespace qublet

#include "settings/preferences/ui/PromptingPage.h"

#include "settings/preferences/ui/digits_only.h"

namespace qublet {

PromptingPage::PromptingPage(QWidget* parent) : OptionsPage(SettingPage::kPrompting, parent) {
  setupUi(this);
  const auto* digits = new DigitsOnly(this);
  for (QLineEdit* box : {txtPlaylistSize, txtPlaylistTime, txtPlaylistCount}) box->setValidator(digits);
}

}  // namespace qublet

#include "settings/preferences/ui/InterfacePage.h"

namespace qublet {

InterfacePage::InterfacePage(QWidget* parent) : OptionsPage(SettingPage::kInterface, parent) {
  setupUi(this);
}

void InterfacePage::Attach(Preferences& preferences) {
  connect(Command1, &QPushButton::clicked, this, [this, &preferences] {
    if (const auto folder = preferences.Command1_Click(txtImportLoc->text().toStdString()))
      txtImportLoc->setText(QString::fromStdString(*folder));
  });
}

}  // namespace qublet

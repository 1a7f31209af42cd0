#include "settings/preferences/ui/GeneralOptionsPage.h"

namespace qublet {

GeneralOptionsPage::GeneralOptionsPage(QWidget* parent) : OptionsPage(SettingPage::kGeneral, parent) {
  setupUi(this);
  const SettingLimits& counts = FindSettingRow("SSE", "RCount")->limits;
  for (std::int32_t count = counts.least; count <= counts.most; ++count)
    cmbRecentCount->addItem(QString::number(count));
  connect(cmdDefault, &QPushButton::clicked, this, &GeneralOptionsPage::defaultsWanted);
  connect(cmdFlushReg, &QPushButton::clicked, this, &GeneralOptionsPage::flushWanted);
}

}  // namespace qublet

#include "media/editor/ui/TpsiPage.h"

#include "media/editor/ui/later_controls.h"

namespace qublet {

TpsiPage::TpsiPage(QWidget* parent) : QWidget(parent) {
  setupUi(this);
  DisableUntilLater({TPSIadd, TPSIremove, TPSIclrall});
  for (QComboBox* box : {TPSIhour, TPSImin, TPSIsec}) {
    for (int number = 0; number < 60; ++number) box->addItem(QStringLiteral("%1").arg(number, 2, 10, QChar(u'0')));
  }
}

void TpsiPage::SetPlayed(bool played) {
  TPSIautoupdate->setEnabled(played);
  TPSIgoto->setEnabled(played);
}

}  // namespace qublet

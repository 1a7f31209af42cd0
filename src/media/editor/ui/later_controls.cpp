#include "media/editor/ui/later_controls.h"

namespace qublet {

void DisableUntilLater(std::initializer_list<QWidget*> controls) {
  for (QWidget* control : controls) {
    control->setEnabled(false);
    control->setToolTip(QObject::tr("In a later version"));
  }
}

}  // namespace qublet

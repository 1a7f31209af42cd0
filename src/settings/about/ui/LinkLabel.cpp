#include "settings/about/ui/LinkLabel.h"

#include <QFocusEvent>

namespace qublet {

void LinkLabel::focusInEvent(QFocusEvent* event) {
  QLabel::focusInEvent(event);
  if (event->reason() == Qt::TabFocusReason) focusNextPrevChild(true);
  if (event->reason() == Qt::BacktabFocusReason) focusNextPrevChild(false);
}

}  // namespace qublet

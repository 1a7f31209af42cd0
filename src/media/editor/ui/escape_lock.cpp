#include "media/editor/ui/escape_lock.h"

#include <QKeyEvent>

namespace qublet {

bool EscapeLock::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) escaped_ = true;
  return InputLock::eventFilter(watched, event);
}

}  // namespace qublet

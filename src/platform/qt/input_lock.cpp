#include "platform/qt/input_lock.h"

#include <QCoreApplication>
#include <QEvent>

namespace qublet {

bool InputLock::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::Close:
      event->ignore();
      return true;
    default:
      return QObject::eventFilter(watched, event);
  }
}

void InputLock::Pump() {
  QCoreApplication* application = QCoreApplication::instance();
  if (application == nullptr) return;
  application->installEventFilter(this);
  QCoreApplication::processEvents();
  application->removeEventFilter(this);
}

}  // namespace qublet

#include "platform/qt/input_lock.h"

#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>

namespace qublet {

namespace {

bool IsInput(const QEvent& event) {
  switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::InputMethod:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::NativeGesture:
    case QEvent::Close:
      return true;
    default:
      return false;
  }
}

bool IsEscape(const QEvent& event) {
  return event.type() == QEvent::KeyPress && static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
}

}  // namespace

bool InputLock::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Timer || event->type() == QEvent::SockAct) return true;
  if (IsEscape(*event)) escape_pressed_ = true;
  // Qt's own window behind a widget keeps account of the buttons that are down: it is let know, the widget isn't.
  if (!IsInput(*event) || watched->isWindowType()) return QObject::eventFilter(watched, event);
  event->ignore();
  return true;
}

void InputLock::Pump() {
  QCoreApplication* application = QCoreApplication::instance();
  if (application == nullptr || pumping_) return;
  pumping_ = true;
  application->installEventFilter(this);
  // Not every event dispatcher keeps to this, hence the filter.
  QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
  application->removeEventFilter(this);
  pumping_ = false;
}

}  // namespace qublet

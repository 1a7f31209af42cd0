#include "platform/qt/last_input.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QInputEvent>
#include <QSysInfo>

namespace qublet {

LastInput::LastInput() {
  QCoreApplication::instance()->installEventFilter(this);
}

std::string LastInput::StartupId() {
  if (QGuiApplication::platformName() != u"xcb" || time_ == 0) return "";
  return QStringLiteral("QUBLET20-%1-%2-%3_TIME%4")
      .arg(QCoreApplication::applicationPid())
      .arg(QSysInfo::machineHostName())
      .arg(++starts_)
      .arg(time_)
      .toStdString();
}

bool LastInput::eventFilter(QObject* watched, QEvent* event) {
  if (event->isInputEvent()) {
    const quint64 time = static_cast<QInputEvent*>(event)->timestamp();
    if (time != 0) time_ = time;
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace qublet

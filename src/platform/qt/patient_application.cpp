#include "platform/qt/patient_application.h"

#include <new>
#include <utility>

#include "platform/failure.h"

namespace qublet {

bool PatientApplication::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (const std::bad_alloc&) {
    // Without the memory to say so it isn't said.
    ResumeNext([this] { TellLater(); });
    return true;
  }
}

void PatientApplication::TellLater() {
  if (!tell_ || std::exchange(is_to_tell_, true)) return;
  QMetaObject::invokeMethod(
      this,
      [this] {
        is_to_tell_ = false;
        tell_();
      },
      Qt::QueuedConnection);
}

}  // namespace qublet

#include "platform/qt/redraw.h"

#include <QVariant>

namespace qublet {
namespace {

constexpr const char* kLocks = "redrawLocks";  // a control's own property: how many hold it

}  // namespace

void SetRedraw(QWidget& control, bool flag) {
  const int before = control.property(kLocks).toInt();
  const int locks = flag ? before - 1 : before + 1;
  if (locks < 0) return;
  control.setProperty(kLocks, locks);
  if (before == 0 || locks == 0) control.setUpdatesEnabled(locks == 0);
}

void SetWindowOpacity(QWidget& window, quint8 alpha) {
  window.setWindowOpacity(alpha / 255.0);
}

}  // namespace qublet

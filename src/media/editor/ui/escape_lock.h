#pragma once

#include "platform/qt/input_lock.h"

namespace qublet {

// The same for work that Escape stops: the key does nothing else meanwhile.
class EscapeLock : public InputLock {
  Q_OBJECT

 public:
  bool Escaped() const { return escaped_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool escaped_ = false;
};

}  // namespace qublet

#pragma once

#include <QObject>

namespace qublet {

// Lets the windows repaint in the middle of long work: whatever waits on the message loop is handled, but input
// (keys, buttons, drops, a press on the close box) is thrown away, also what the user did since the last time.
class InputLock : public QObject {
  Q_OBJECT

 public:
  void Pump();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace qublet

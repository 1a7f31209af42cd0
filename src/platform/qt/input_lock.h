#pragma once

#include <QObject>

namespace qublet {

// Lets the windows repaint in the middle of long work and answers the window system. Input (keys, buttons, drops, a
// press on the close box) is thrown away, also what the user did since the last time. No timer fires and no socket is
// read: a timer comes again after its interval, what a socket holds stays there. Escape is thrown away too, but
// noted.
class InputLock : public QObject {
  Q_OBJECT

 public:
  // Does nothing inside itself.
  void Pump();

  // Whether Escape has been among what was thrown away since ForgetEscape.
  bool EscapePressed() const { return escape_pressed_; }
  void ForgetEscape() { escape_pressed_ = false; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool pumping_ = false;
  bool escape_pressed_ = false;
};

}  // namespace qublet

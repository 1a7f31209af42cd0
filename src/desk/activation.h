#pragma once

#include <QObject>
#include <QWidget>
#include <functional>

namespace qublet {

// Tells why a window of a tool comes to the front. Message boxes, file dialogs and pop-up menus that it has shown,
// and other programs that the user comes back from, are no reasons.
class Activation : public QObject {
  Q_OBJECT

 public:
  enum class Cause {
    kOpened,    // it has been shown
    kReturned,  // the user comes back from another window of the program
  };

  // `came` runs each time, when the window is in front. The window owns this.
  Activation(QWidget& window, std::function<void(Cause cause)> came);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void FocusMoved(const QWindow* focused);
  void Come(bool returned);

  QWidget& window_;
  std::function<void(Cause cause)> came_;
  bool from_window_ = false;  // the keyboard was in another window of the program last, one that counts
  bool opened_ = false;
};

}  // namespace qublet

#pragma once

#include <QWidget>

namespace qublet {

// Holds back the painting of a control and of all in it (`flag` False), or lets it go and paints it anew (True).
// Calls nest: it is let go by the last True. One True too many does nothing.
void SetRedraw(QWidget& control, bool flag);

// Holds the painting back for as long as it lives.
class LockRedraw {
 public:
  explicit LockRedraw(QWidget& control) : control_(control) { SetRedraw(control_, false); }
  ~LockRedraw() { SetRedraw(control_, true); }
  LockRedraw(const LockRedraw&) = delete;
  LockRedraw& operator=(const LockRedraw&) = delete;

 private:
  QWidget& control_;
};

// How solid a window is: 0 can't be seen, 255 hides what is behind it. Desktops that can't do it show it solid.
void SetWindowOpacity(QWidget& window, quint8 alpha);

}  // namespace qublet

#pragma once

#include <QElapsedTimer>
#include <QWidget>

#include "platform/qt/input_lock.h"

namespace qublet {

// Long work that a tool's window does itself, from the making of this to its end: the window has the wait cursor and
// goes on painting, and what the user presses meanwhile is thrown away.
class BusyWindow {
 public:
  explicit BusyWindow(QWidget& window);
  ~BusyWindow();
  BusyWindow(const BusyWindow&) = delete;
  BusyWindow& operator=(const BusyWindow&) = delete;

  // Whether the last Repaint was long enough ago: often enough for a smooth window, seldom enough to cost nothing.
  bool IsDue() const;
  void Repaint();

 private:
  QWidget& window_;
  InputLock lock_;
  QElapsedTimer painted_;
};

}  // namespace qublet

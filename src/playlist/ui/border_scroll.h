#pragma once

#include <QAbstractItemView>
#include <QTimer>
#include <functional>

namespace qublet {

// Scrolls a list up or down for as long as something is held at its upper or lower border or beyond, moving or not,
// the faster the further beyond.
class BorderScroll : public QObject {
 public:
  // `Moved` hears where over the rows the pointer stands after each step, as if it had been moved there.
  BorderScroll(QAbstractItemView& view, std::function<void(QPoint)> Moved);

  // Something is held at this point of the viewport.
  void Follow(QPoint point);
  void Stop() { timer_.stop(); }

 private:
  void Step();
  int RowsAStep() const;

  QAbstractItemView& view_;
  std::function<void(QPoint)> moved_;
  QTimer timer_;
  QPoint point_;
};

}  // namespace qublet

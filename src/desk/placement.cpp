#include "desk/placement.h"

#include <QScreen>
#include <algorithm>

namespace qublet {
namespace {

// Leaves no room beside it: wider than 1/2.5 or higher than 1/1.2 of the screen.
bool IsLarge(const QRect& main, const QRect& screen) {
  return screen.width() * 2 / 5 < main.width() || screen.height() * 5 / 6 < main.height();
}

}  // namespace

QPoint PlaceBeside(const QRect& main, QSize frm, const QRect& screen, QPoint present) {
  if (IsLarge(main, screen)) {
    return {main.left() + main.width() / 2 - frm.width() / 2, main.top() + main.height() / 2 - frm.height() / 2};
  }
  QPoint place(present.x(), main.top());
  if (main.left() - screen.left() >= frm.width()) {
    place.setX(main.left() - frm.width());
  } else if (main.left() + main.width() + frm.width() <= screen.left() + screen.width()) {
    place.setX(main.left() + main.width());
  }
  if (main.top() + frm.height() > screen.top() + screen.height()) {
    place.setY(main.top() + main.height() - frm.height());
  }
  return place;
}

void PositionForm(const QWidget& main, QWidget& frm) {
  const QSize frame = main.frameGeometry().size() - main.size();
  frm.move(PlaceBeside(main.frameGeometry(), frm.size() + frame, main.screen()->geometry(), frm.pos()));
}

void GrowOnScreen(QWidget& window, QSize more) {
  const QRect screen = window.screen()->availableGeometry();
  const QSize frame = window.frameGeometry().size() - window.size();
  window.resize((window.size() + more).boundedTo(screen.size() - frame).expandedTo(window.minimumSize()));
  const QPoint last = screen.topLeft() + QPoint(screen.width(), screen.height()) -
                      QPoint(window.width() + frame.width(), window.height() + frame.height());
  const QPoint place(std::max(screen.left(), std::min(window.x(), last.x())),
                     std::max(screen.top(), std::min(window.y(), last.y())));
  if (place != window.pos()) window.move(place);
}

}  // namespace qublet

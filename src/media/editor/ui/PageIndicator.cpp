#include "media/editor/ui/PageIndicator.h"

#include <QPainter>
#include <utility>

namespace qublet {

PageIndicator::PageIndicator(const QString& name, QString page, QWidget* parent)
    : QWidget(parent), page_(std::move(page)) {
  setObjectName(name);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  Show(State::kOff);
}

void PageIndicator::Show(State state) {
  state_ = state;
  const QString word = state == State::kOn ? tr("in use") : state == State::kOff ? tr("not in use") : tr("unusable");
  setAccessibleName(QStringLiteral("%1: %2").arg(page_, word));
  setToolTip(accessibleName());
  update();
}

QColor PageIndicator::Colour() const {
  switch (state_) {
    case State::kOn:
      return {0, 0, 255};
    case State::kOff:
      return {0, 0, 64};
    case State::kUnusable:
      break;
  }
  return {255, 0, 0};
}

QSize PageIndicator::sizeHint() const {
  const int side = fontMetrics().ascent();
  return {side, side};
}

// On: a disc; off: a small one in a ring; unusable: a disc with a bar across. The ring stands out on every desktop.
void PageIndicator::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF ring = QRectF(rect()).adjusted(1, 1, -1, -1);
  const QColor ink = palette().color(QPalette::WindowText);
  painter.setPen(QPen(ink, 1));
  painter.setBrush(state_ == State::kOff ? palette().color(QPalette::Window) : Colour());
  painter.drawEllipse(ring);
  if (state_ == State::kOff) {
    painter.setBrush(Colour());
    painter.drawEllipse(ring.center(), ring.width() / 4, ring.height() / 4);
  }
  if (state_ == State::kUnusable) {
    painter.setPen(QPen(Qt::white, ring.height() / 5));
    painter.drawLine(QPointF(ring.left() + ring.width() / 4, ring.center().y()),
                     QPointF(ring.right() - ring.width() / 4, ring.center().y()));
  }
}

}  // namespace qublet

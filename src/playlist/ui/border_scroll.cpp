#include "playlist/ui/border_scroll.h"

#include <QScrollBar>
#include <algorithm>
#include <cstdlib>

namespace qublet {
namespace {

constexpr int kInterval = 60;        // milliseconds
constexpr int kBorder = 8;           // pixels inside the viewport that belong to it
constexpr int kPixelsAMoreRow = 20;  // beyond it

}  // namespace

BorderScroll::BorderScroll(QAbstractItemView& view, std::function<void(QPoint)> Moved)
    : QObject(&view), view_(view), moved_(std::move(Moved)) {
  timer_.setInterval(kInterval);
  connect(&timer_, &QTimer::timeout, this, &BorderScroll::Step);
}

// Below 0 upwards.
int BorderScroll::RowsAStep() const {
  const int above = kBorder - point_.y();
  const int below = point_.y() - (view_.viewport()->height() - 1 - kBorder);
  if (above > 0) return -1 - above / kPixelsAMoreRow;
  return below > 0 ? 1 + below / kPixelsAMoreRow : 0;
}

void BorderScroll::Follow(QPoint point) {
  point_ = point;
  if (RowsAStep() == 0) {
    timer_.stop();
  } else if (!timer_.isActive()) {
    timer_.start();
  }
}

void BorderScroll::Step() {
  QScrollBar& bar = *view_.verticalScrollBar();
  const int before = bar.value();
  bar.setValue(before + RowsAStep());
  const QRect rows = view_.viewport()->rect();
  const bool outside = point_.y() < rows.top() || point_.y() > rows.bottom();
  if (bar.value() != before || outside) {
    moved_({point_.x(), std::clamp(point_.y(), rows.top(), rows.bottom())});
  }
}

}  // namespace qublet

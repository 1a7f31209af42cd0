#include "media/editor/ui/PictureView.h"

#include <QPainter>

namespace qublet {

PictureView::PictureView(QWidget* parent) : QWidget(parent) {}

void PictureView::Show(const QImage& picture) {
  picture_ = picture;
  update();
}

QSize PictureView::sizeHint() const {
  const int side = fontMetrics().height() * 10;
  return {side, side};
}

void PictureView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  if (picture_.isNull()) return;
  const QRect room = rect().adjusted(1, 1, -1, -1);
  QSize size = picture_.size();
  if (size.width() > room.width() || size.height() > room.height()) size.scale(room.size(), Qt::KeepAspectRatio);
  QRect place(QPoint(), size);
  place.moveCenter(room.center());
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(place, picture_);
}

}  // namespace qublet

#include "media/editor/ui/PictureView.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPointer>
#include <QThreadPool>
#include <utility>

#include "platform/qt/picture_codec.h"
#include "platform/qt/shown_text.h"
#include "playlist/paths/formats.h"

namespace qublet {
namespace {

constexpr int kLargestKept = 2560;  // pixels a side; no screen's page has room for more

QImage Reduced(const QImage& picture) {
  if (picture.width() <= kLargestKept && picture.height() <= kLargestKept) return picture;
  return picture.scaled(kLargestKept, kLargestKept, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

}  // namespace

PictureView::PictureView(QWidget* parent) : QWidget(parent) {}

void PictureView::Show(std::shared_ptr<const TagPicture> picture, const std::string& thousands_separator) {
  if (picture == given_) return;
  given_ = std::move(picture);
  Take({}, {});
  if (given_) Read(FormatSize(given_->data.size(), thousands_separator));
}

void PictureView::Read(const std::string& size_text) {
  reading_ = true;
  const auto take = [view = QPointer(this), given = given_, size_text](const QImage& picture, const QString& tip) {
    if (view && view->given_ == given) view->Take(picture, tip);
  };
  QThreadPool::globalInstance()->start([given = given_, size_text, take] {
    const QImage picture = DecodedPicture(given->data);
    const QString tip = tr("%1 x %2 pixels, %3").arg(picture.width()).arg(picture.height()).arg(ShownText(size_text));
    QMetaObject::invokeMethod(
        qApp, [take, kept = Reduced(picture), tip] { take(kept, tip); }, Qt::QueuedConnection);
  });
}

void PictureView::Take(const QImage& picture, const QString& tip) {
  reading_ = false;
  picture_ = picture;
  scaled_ = {};
  setToolTip(picture.isNull() ? QString() : tip);
  setAccessibleDescription(toolTip());
  update();
}

QSize PictureView::sizeHint() const {
  const int side = fontMetrics().height() * 10;
  return {side, side};
}

QSize PictureView::FittingPixels() const {
  const QSize room = rect().adjusted(1, 1, -1, -1).size() * devicePixelRatioF();
  QSize size = picture_.size();
  if (size.width() > room.width() || size.height() > room.height()) size.scale(room, Qt::KeepAspectRatio);
  return size;
}

void PictureView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  if (picture_.isNull()) return;
  const QSize pixels = FittingPixels();
  if (scaled_.size() != pixels) scaled_ = picture_.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  QRectF place(QPointF(), QSizeF(pixels) / devicePixelRatioF());
  place.moveCenter(QRectF(rect()).center());
  painter.drawImage(place, scaled_);
}

}  // namespace qublet

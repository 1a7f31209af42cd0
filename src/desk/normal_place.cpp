#include "desk/normal_place.h"

#include <QEvent>

namespace qublet {
namespace {

constexpr int kLasting = 300;  // milliseconds

}  // namespace

NormalPlace::NormalPlace(QWidget& window) : QObject(&window), window_(window) {
  window.installEventFilter(this);
  soon_.setSingleShot(true);
  soon_.setInterval(kLasting);
  connect(&soon_, &QTimer::timeout, this, &NormalPlace::Keep);
}

bool NormalPlace::IsNormal() const {
  return !(window_.windowState() & (Qt::WindowMaximized | Qt::WindowMinimized | Qt::WindowFullScreen));
}

QRect NormalPlace::Get() const {
  return IsNormal() || !lasting_.isValid() ? QRect(window_.pos(), window_.size()) : lasting_;
}

void NormalPlace::Set(const QRect& place) {
  lasting_ = place;
  if (!IsNormal()) return;
  window_.resize(place.size());
  window_.move(place.topLeft());
}

void NormalPlace::Keep() {
  if (IsNormal()) lasting_ = Get();
}

bool NormalPlace::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  if (type == QEvent::Move || type == QEvent::Resize) soon_.start();
  if (type == QEvent::WindowStateChange) soon_.stop();
  return QObject::eventFilter(watched, event);
}

}  // namespace qublet

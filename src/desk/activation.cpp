#include "desk/activation.h"

#include <QApplication>
#include <QColorDialog>
#include <QEvent>
#include <QFileDialog>
#include <QFontDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QWindow>
#include <utility>

namespace qublet {
namespace {

QWidget* TopLevelOf(const QWindow* focused) {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->windowHandle() == focused) return widget;
  }
  return nullptr;
}

// Shown on the way by a window, which then comes to the front again by itself.
bool IsPassing(const QWidget& window) {
  return qobject_cast<const QMessageBox*>(&window) != nullptr ||
         qobject_cast<const QFileDialog*>(&window) != nullptr ||
         qobject_cast<const QInputDialog*>(&window) != nullptr ||
         qobject_cast<const QColorDialog*>(&window) != nullptr ||
         qobject_cast<const QFontDialog*>(&window) != nullptr || window.property("passing").toBool() ||
         (window.windowFlags() & Qt::WindowType_Mask) == Qt::Popup;
}

}  // namespace

Activation::Activation(QWidget& window, std::function<void(Cause cause)> came)
    : QObject(&window), window_(window), came_(std::move(came)) {
  window.installEventFilter(this);
  connect(qApp, &QGuiApplication::focusWindowChanged, this, &Activation::FocusMoved);
}

bool Activation::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Show && !event->spontaneous()) opened_ = true;
  // A window that had the keyboard last may get it again without a word about the focus.
  if (event->type() == QEvent::WindowActivate && opened_) {
    from_window_ = false;
    Come(false);
  }
  return QObject::eventFilter(watched, event);
}

void Activation::FocusMoved(const QWindow* focused) {
  const QWidget* to = focused == nullptr ? nullptr : TopLevelOf(focused);
  if (to == &window_) {
    Come(std::exchange(from_window_, false));
  } else {
    // Asked now: by the time the user comes back it may be gone.
    from_window_ = to != nullptr && !IsPassing(*to);
  }
}

void Activation::Come(bool returned) {
  if (std::exchange(opened_, false)) {
    came_(Cause::kOpened);
  } else if (returned) {
    came_(Cause::kReturned);
  }
}

}  // namespace qublet

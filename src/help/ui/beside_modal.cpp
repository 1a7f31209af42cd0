#include "help/ui/beside_modal.h"

#include <QEvent>
#include <QGuiApplication>

namespace qublet {

BesideModal::BesideModal(QWidget& window) : QObject(&window), window_(window), handle_(window.windowHandle()) {
  handle_->installEventFilter(this);
  Belong();
}

void BesideModal::Follow() {
  if (handle_->transientParent() == QGuiApplication::modalWindow()) return;
  if (!window_.isVisible()) return Belong();
  // Window managers are told whom a window belongs to when it is shown.
  const QRect place = window_.geometry();
  window_.hide();
  Belong();
  window_.setGeometry(place);
  window_.show();
}

void BesideModal::Belong() {
  disconnect(end_of_modal_);
  QWindow* modal = QGuiApplication::modalWindow();
  handle_->setTransientParent(modal);
  if (modal == nullptr) return;
  end_of_modal_ = connect(
      modal, &QWindow::visibleChanged, this, [this] { Belong(); }, Qt::QueuedConnection);
}

bool BesideModal::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::WindowBlocked) Belong();
  return QObject::eventFilter(watched, event);
}

}  // namespace qublet

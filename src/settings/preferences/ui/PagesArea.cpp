#include "settings/preferences/ui/PagesArea.h"

#include <QEvent>
#include <QScrollBar>

namespace qublet {

QSize PagesArea::BesideThePages() const {
  return {verticalScrollBar()->sizeHint().width(), 0};
}

QSize PagesArea::sizeHint() const {
  return widget()->sizeHint() + BesideThePages();
}

QSize PagesArea::minimumSizeHint() const {
  const QSize pages = widget()->minimumSizeHint() + BesideThePages();
  return {pages.width(), QScrollArea::minimumSizeHint().height()};
}

// What the pages need is known only when they are shown, and changes with the desktop's fonts.
bool PagesArea::eventFilter(QObject* watched, QEvent* event) {
  if (watched == widget() && event->type() == QEvent::LayoutRequest) updateGeometry();
  return QScrollArea::eventFilter(watched, event);
}

}  // namespace qublet

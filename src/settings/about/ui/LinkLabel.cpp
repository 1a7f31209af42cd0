#include "settings/about/ui/LinkLabel.h"

#include <QFocusEvent>

#include "platform/qt/colours.h"

namespace qublet {

void LinkLabel::ShowLink(const QString& address) {
  constexpr double kOfText = 4.5;
  address_ = address;
  const QColor colour = Legible(palette().color(QPalette::Link), palette().color(QPalette::Window), kOfText);
  setText(QStringLiteral("<a style=\"color: %1\" href=\"%2\">%2</a>").arg(colour.name(), address.toHtmlEscaped()));
}

void LinkLabel::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && !address_.isEmpty()) ShowLink(address_);
}

void LinkLabel::focusInEvent(QFocusEvent* event) {
  QLabel::focusInEvent(event);
  if (event->reason() == Qt::TabFocusReason) focusNextPrevChild(true);
  if (event->reason() == Qt::BacktabFocusReason) focusNextPrevChild(false);
}

}  // namespace qublet

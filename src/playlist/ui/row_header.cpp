#include "playlist/ui/row_header.h"

#include <QHelpEvent>
#include <QToolTip>

namespace qublet {

RowHeader::RowHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
  setStretchLastSection(false);
  setMinimumSectionSize(0);
}

void RowHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int section) const {
  QHeaderView::initStyleOptionForIndex(option, section);
  if (option->textAlignment & Qt::AlignRight) option->text += kRoomOnTheRight;
}

bool RowHeader::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QHeaderView::viewportEvent(event);
  const auto& help = static_cast<const QHelpEvent&>(*event);
  const int section = logicalIndexAt(help.pos());
  if (section < 0 || sectionSizeFromContents(section).width() <= sectionSize(section)) {
    QToolTip::hideText();
  } else {
    QToolTip::showText(help.globalPos(), model()->headerData(section, Qt::Horizontal).toString(), viewport());
  }
  return true;
}

}  // namespace qublet

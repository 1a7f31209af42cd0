#include "tools/rename/ui/name_delegate.h"

#include <QApplication>
#include <QPainter>
#include <QTextLayout>

#include "tools/rename/ui/changed_letters.h"
#include "tools/rename/ui/preview_model.h"

namespace qublet {
namespace {

constexpr qsizetype kLongestCompared = 512;  // letters

QList<QTextLayout::FormatRange> Marks(const QString& text, const QString& other) {
  QTextCharFormat format;
  format.setFontWeight(QFont::Bold);
  format.setFontUnderline(true);
  QList<QTextLayout::FormatRange> marks;
  for (const LetterRange& range : ChangedLetters(text, other)) marks.append({range.start, range.length, format});
  return marks;
}

}  // namespace

void NameDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const QString text = index.data(Qt::DisplayRole).toString();
  const QString other = index.data(PreviewModel::kOtherNameRole).toString();
  if (other.isEmpty() || other == text || std::max(text.size(), other.size()) > kLongestCompared)
    return QStyledItemDelegate::paint(painter, option, index);
  QTextLayout layout(text, option.font);
  layout.setFormats(Marks(text, other));
  layout.beginLayout();
  QTextLine line = layout.createLine();
  layout.endLayout();
  QStyleOptionViewItem cell = option;
  initStyleOption(&cell, index);
  const QStyle* style = cell.widget != nullptr ? cell.widget->style() : QApplication::style();
  const QRect room = style->subElementRect(QStyle::SE_ItemViewItemText, &cell, cell.widget).adjusted(2, 0, -2, 0);
  if (line.naturalTextWidth() > room.width()) return QStyledItemDelegate::paint(painter, option, index);
  cell.text.clear();
  style->drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);
  const bool selected = (cell.state & QStyle::State_Selected) != 0;
  painter->save();
  painter->setPen(cell.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
  layout.draw(painter, QPointF(room.left(), room.top() + (room.height() - line.height()) / 2));
  painter->restore();
}

}  // namespace qublet

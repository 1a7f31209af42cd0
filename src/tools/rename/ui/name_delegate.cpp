#include "tools/rename/ui/name_delegate.h"

#include <QApplication>
#include <QPainter>
#include <QTextLayout>

#include "tools/rename/ui/changed_letters.h"
#include "tools/rename/ui/preview_model.h"

namespace qublet {
namespace {

constexpr qsizetype kLongestCompared = 512;  // letters
constexpr double kRoomForBold = 0.93;

// A name as there is room for it: the first and the last letters, and a mark between where some are left out.
struct ShortenedName {
  ShortenedName(const QString& name, const QFontMetrics& font, int width)
      : text(font.elidedText(name, Qt::ElideMiddle, static_cast<int>(width * kRoomForBold))) {
    if (text == name) return;
    while (first < text.size() && text[first] == name[first]) ++first;
    left_out = name.size() - text.size() + 1;
  }
  // Where a letter of the name stands, -1 where it is left out.
  qsizetype PlaceOf(qsizetype letter) const {
    if (left_out == 0 || letter < first) return letter;
    return letter < first + left_out ? -1 : letter - left_out + 1;
  }

  QString text;
  qsizetype first = 0;
  qsizetype left_out = 0;
};

QList<QTextLayout::FormatRange> Marks(const QString& name, const QString& other, const ShortenedName& shown) {
  QTextCharFormat format;
  format.setFontWeight(QFont::Bold);
  format.setFontUnderline(true);
  QList<QTextLayout::FormatRange> marks;
  for (const LetterRange& range : ChangedLetters(name, other)) {
    for (int letter = range.start; letter < range.start + range.length; ++letter) {
      const qsizetype place = shown.PlaceOf(letter);
      if (place >= 0) marks.append({static_cast<int>(place), 1, format});
    }
  }
  return marks;
}

}  // namespace

void NameDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const QString text = index.data(Qt::DisplayRole).toString();
  const QString other = index.data(PreviewModel::kOtherNameRole).toString();
  if (other.isEmpty() || other == text || std::max(text.size(), other.size()) > kLongestCompared)
    return QStyledItemDelegate::paint(painter, option, index);
  QStyleOptionViewItem cell = option;
  initStyleOption(&cell, index);
  const QStyle* style = cell.widget != nullptr ? cell.widget->style() : QApplication::style();
  const QRect room = style->subElementRect(QStyle::SE_ItemViewItemText, &cell, cell.widget).adjusted(3, 0, -3, 0);
  const ShortenedName shown(text, cell.fontMetrics, room.width());
  QTextLayout layout(shown.text, cell.font);
  layout.setFormats(Marks(text, other, shown));
  layout.beginLayout();
  const QTextLine line = layout.createLine();
  layout.endLayout();
  cell.text.clear();
  style->drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);
  const bool selected = (cell.state & QStyle::State_Selected) != 0;
  painter->save();
  painter->setClipRect(room);
  painter->setPen(cell.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
  layout.draw(painter, QPointF(room.left(), room.top() + (room.height() - line.height()) / 2));
  painter->restore();
}

}  // namespace qublet

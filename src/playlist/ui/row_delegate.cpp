#include "playlist/ui/row_delegate.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include "platform/qt/colours.h"
#include "platform/qt/shown_text.h"
#include "playlist/columns.h"
#include "playlist/ui/row_header.h"

namespace qublet {
namespace {

constexpr double kGhosted = 0.55;    // of the text's strength
constexpr double kHint = 0.6;        // likewise
constexpr float kGridLine = 0.25F;   // likewise, so that the lines suit every pair of colours
constexpr double kForText = 4.5;     // contrasts
constexpr double kForGhosted = 2.9;  // 2.5 is left of it under the veil that the focus lays over its row
constexpr double kForShapes = 3;

QColor Pale(QColor colour, float strength) {
  colour.setAlphaF(strength);
  return colour;
}

int RoomOnTheRight(const QStyleOptionViewItem& option, int column) {
  const bool right = kColumns[static_cast<std::size_t>(column)].right_aligned;
  return right ? option.fontMetrics.horizontalAdvance(kRoomOnTheRight) : 0;
}

}  // namespace

RowColours::RowColours(const QPalette& palette, QPalette::ColorGroup group) {
  const QColor base = palette.color(group, QPalette::Base);
  const QColor text = palette.color(group, QPalette::Text);
  selected = Legible(palette.color(group, QPalette::Highlight), base, kForShapes);
  selected_text = palette.color(group, QPalette::HighlightedText);
  // The desktop's own text colour first, then the background, as far as that one allows.
  const QColor under_text = Legible(selected, selected_text, kForText);
  if (Contrast(under_text, base) >= kForShapes) selected = under_text;
  if (Contrast(selected_text, selected) < kForText) selected_text = StrongestOn(selected);
  ghosted = Legible(Mixed(text, base, kGhosted), base, kForGhosted);
  selected_ghosted = Legible(Mixed(selected_text, selected, kGhosted), selected, kForGhosted);
  hint = Legible(Mixed(text, base, kHint), base, kForText);
  line = Legible(text, base, kForShapes);
}

void RowDelegate::SetPalette(const QPalette& palette) {
  active_ = RowColours(palette, QPalette::Active);
  inactive_ = RowColours(palette, QPalette::Inactive);
}

void RowDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  const Row& row = rows_.At(index.row() + 1);
  if (hot_tracking_ && option->state.testFlag(QStyle::State_MouseOver)) option->font.setUnderline(true);
  option->state.setFlag(QStyle::State_MouseOver, false);
  const RowColours& colours = Colours(option->state.testFlag(QStyle::State_Active));
  if (row.selected) {
    option->palette.setColor(QPalette::Text, row.ghosted ? colours.selected_ghosted : colours.selected_text);
  } else if (row.ghosted) {
    option->palette.setColor(QPalette::Text, colours.ghosted);
  }
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  return QStyledItemDelegate::sizeHint(option, index) + QSize(RoomOnTheRight(option, index.column()), 0);
}

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  if (rows_.At(index.row() + 1).selected) {
    painter->fillRect(option.rect, Colours(option.state.testFlag(QStyle::State_Active)).selected);
  }
  QStyleOptionViewItem text = option;
  text.rect.setRight(option.rect.right() - RoomOnTheRight(option, index.column()));
  QStyledItemDelegate::paint(painter, text, index);
  if (!grid_lines_) return;
  painter->save();
  painter->setPen(Pale(option.palette.color(QPalette::Text), kGridLine));
  painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
  painter->drawLine(option.rect.topRight(), option.rect.bottomRight());
  painter->restore();
}

bool RowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                            const QModelIndex& index) {
  if (event->type() != QEvent::ToolTip || !index.isValid()) {
    return QStyledItemDelegate::helpEvent(event, view, option, index);
  }
  const Row& row = rows_.At(index.row() + 1);
  const QRect seen = option.rect & view->viewport()->rect();
  // The name and the folder of a file that the disk has under another name say which one it is.
  const bool tells_file =
      row.RealPath() != row.FullPath() && (index.column() == kFileName || index.column() == kPath);
  const std::string text = tells_file ? row.RealPath() : row.cells[static_cast<std::size_t>(index.column())];
  if (!tells_file && sizeHint(option, index).width() <= seen.width()) {
    QToolTip::hideText();
  } else {
    QToolTip::showText(event->globalPos(), ShownTip(text), view->viewport(), option.rect);
  }
  return true;
}

}  // namespace qublet

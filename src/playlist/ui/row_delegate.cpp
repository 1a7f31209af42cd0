#include "playlist/ui/row_delegate.h"

#include <QPainter>

namespace qublet {
namespace {

constexpr float kGhosted = 0.55F;   // of the text's strength
constexpr float kGridLine = 0.25F;  // likewise, so that the lines suit every pair of colours

QColor Pale(QColor colour, float strength) {
  colour.setAlphaF(strength);
  return colour;
}

}  // namespace

void RowDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  const Row& row = rows_.At(index.row() + 1);
  option->state.setFlag(QStyle::State_Selected, row.selected);
  if (hot_tracking_ && option->state.testFlag(QStyle::State_MouseOver)) option->font.setUnderline(true);
  option->state.setFlag(QStyle::State_MouseOver, false);
  if (!row.ghosted) return;
  for (const auto role : {QPalette::Text, QPalette::HighlightedText}) {
    option->palette.setColor(role, Pale(option->palette.color(role), kGhosted));
  }
}

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QStyledItemDelegate::paint(painter, option, index);
  if (!grid_lines_) return;
  painter->save();
  painter->setPen(Pale(option.palette.color(QPalette::Text), kGridLine));
  painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
  painter->drawLine(option.rect.topRight(), option.rect.bottomRight());
  painter->restore();
}

}  // namespace qublet

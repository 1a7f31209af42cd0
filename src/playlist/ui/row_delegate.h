#pragma once

#include <QStyledItemDelegate>

#include "playlist/row_store.h"

namespace qublet {

// The colours of the rows, worked out from the list's palette so that they can be told apart whatever background and
// text the user has chosen.
struct RowColours {
  RowColours() = default;
  RowColours(const QPalette& palette, QPalette::ColorGroup group);

  QColor selected;  // background of a selected row
  QColor selected_text;
  QColor ghosted;  // text of a missing row
  QColor selected_ghosted;
  QColor hint;  // what an empty list says
  QColor line;  // where a drop will land
};

// Paints the cells from the rows' flags: whether a row is selected or ghosted is asked of the row. The selection is
// painted here and not by the desktop's style, some of which hardly show it. A tip comes where a cell is cut off.
class RowDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  RowDelegate(const RowStore& rows, QObject* parent) : QStyledItemDelegate(parent), rows_(rows) {}

  void SetGridLines(bool shown) { grid_lines_ = shown; }
  void SetHotTracking(bool on) { hot_tracking_ = on; }
  void SetPalette(const QPalette& palette);
  const RowColours& Colours(bool active) const { return active ? active_ : inactive_; }

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 private:
  const RowStore& rows_;
  RowColours active_;
  RowColours inactive_;
  bool grid_lines_ = false;
  bool hot_tracking_ = false;
};

}  // namespace qublet

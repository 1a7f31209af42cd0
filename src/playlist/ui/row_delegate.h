#pragma once

#include <QStyledItemDelegate>

#include "playlist/row_store.h"

namespace qublet {

// Paints the cells from the rows' flags: whether a row is selected or ghosted is asked of the row.
class RowDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  RowDelegate(const RowStore& rows, QObject* parent) : QStyledItemDelegate(parent), rows_(rows) {}

  void SetGridLines(bool shown) { grid_lines_ = shown; }
  void SetHotTracking(bool on) { hot_tracking_ = on; }

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 private:
  const RowStore& rows_;
  bool grid_lines_ = false;
  bool hot_tracking_ = false;
};

}  // namespace qublet

#pragma once

#include <QAbstractTableModel>

#include "playlist/row_store.h"
#include "playlist/ui/row_icons.h"

namespace qublet {

// The rows as Qt's views want them: a window on the row store that holds no copy.
class RowModel : public QAbstractTableModel, private RowListener {
  Q_OBJECT

 public:
  explicit RowModel(RowStore& rows, QObject* parent = nullptr);
  ~RowModel() override;

  RowStore& Rows() const { return rows_; }
  // Row numbers begin at 1, Qt's at 0.
  QModelIndex IndexOf(int row) const { return row < 1 ? QModelIndex() : index(row - 1, 0); }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  // The views ask both for every row whenever rows come or go: answered here without the base class's detours.
  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 signals:
  void focusMoved(int row);
  void showRow(int row);

 private:
  void CountChanged(int count) override;
  void RowsChanged(int first, int last) override;
  void FocusMoved() override { emit focusMoved(rows_.FocusedRow()); }
  void ShowRow(int index) override { emit showRow(index); }

  RowStore& rows_;
  int count_;  // what the views know of
  RowIcons icons_;
};

}  // namespace qublet

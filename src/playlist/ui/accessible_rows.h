#pragma once

#include <QAccessibleWidget>
#include <QHash>
#include <QPair>
#include <vector>

#include "playlist/row_store.h"

namespace qublet {

class RowList;

// What a screen reader is told of the list: a table of the columns that can be seen, below its header; which rows are
// selected is asked of the rows. Rows and columns are counted from 0, children row by row with the header's first.
class AccessibleRows : public QAccessibleWidget, public QAccessibleTableInterface {
 public:
  // The toolkit asks for the interface when a reader first comes. May be called again.
  static void Install();

  explicit AccessibleRows(RowList& list);
  ~AccessibleRows() override;

  RowList& List() const;
  // Of a cell, or of a header as row -1, by its column in the row store; nothing where the column isn't shown.
  QAccessibleInterface* Part(int row, int column) const;

  void* interface_cast(QAccessible::InterfaceType type) override;
  QString text(QAccessible::Text which) const override;
  QAccessible::State state() const override;
  int childCount() const override;
  QAccessibleInterface* child(int number) const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  QAccessibleInterface* focusChild() const override;

  QAccessibleInterface* caption() const override { return nullptr; }
  QAccessibleInterface* summary() const override { return nullptr; }
  QAccessibleInterface* cellAt(int row, int column) const override;
  int selectedCellCount() const override { return selectedRowCount() * columnCount(); }
  QList<QAccessibleInterface*> selectedCells() const override;
  QString columnDescription(int column) const override;
  QString rowDescription(int) const override { return {}; }
  int selectedColumnCount() const override { return 0; }
  int selectedRowCount() const override;
  int columnCount() const override;
  int rowCount() const override;
  QList<int> selectedColumns() const override { return {}; }
  QList<int> selectedRows() const override;
  bool isColumnSelected(int) const override { return false; }
  bool isRowSelected(int row) const override;
  bool selectRow(int row) override;
  bool selectColumn(int) override { return false; }
  bool unselectRow(int row) override;
  bool unselectColumn(int) override { return false; }
  void modelChange(QAccessibleTableModelChangeEvent* event) override;

 private:
  void Forget(int first_row);

  mutable QHash<QPair<int, int>, QAccessible::Id> parts_;  // by row and column, as far as they were asked for
};

// The child number of a row's first cell.
int AccessibleChild(const RowList& list, int row);

// Tells screen readers which rows have been selected or left out since it was last asked to: each of a few, of many
// only the focused one; then once that the selection has changed.
class SpokenSelection {
 public:
  void Tell(RowList& list, const RowStore& rows);

 private:
  std::vector<bool> told_;
};

}  // namespace qublet

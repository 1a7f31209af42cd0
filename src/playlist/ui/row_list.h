#pragma once

#include <QTreeView>

#include "playlist/ui/row_model.h"
#include "playlist/ui/row_selection.h"

namespace qublet {

class RowDelegate;

// The list of the main window: twelve columns over the row store, selected by the rows' own flags.
class RowList : public QTreeView {
  Q_OBJECT

 public:
  explicit RowList(QWidget* parent = nullptr);

  // Shows the rows; before this the list is empty. `model` outlives the list.
  void ShowRows(RowModel* model);

  // Thin lines between rows and columns; the row under the pointer underlined.
  void SetGridLines(bool shown);
  void SetHotTracking(bool on);

  // Row under a point of the viewport, from 0; only y counts. The row count when there is none.
  int GetRowAtPoint(int y) const;

 signals:
  void rowsSelected();
  // Files dropped at a point of the viewport.
  void filesDropped(const QStringList& native_paths, QPoint point);
  void keyPressed(int key);
  // By the left button, on a row or beside the rows.
  void doubleClickedAnywhere();

 protected:
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  QModelIndexList selectedIndexes() const override;
  void dataChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) override;

 private:
  bool IsSelected(const QModelIndex& index) const;
  QItemSelectionModel::SelectionFlags MouseCommand(const QModelIndex& index, const QMouseEvent& event) const;

  RowModel* model_ = nullptr;
  RowSelection* selection_ = nullptr;
  RowDelegate* delegate_ = nullptr;
  bool pressed_on_selected_ = false;
};

}  // namespace qublet

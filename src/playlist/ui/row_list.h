#pragma once

#include <QTreeView>
#include <optional>
#include <string>
#include <vector>

#include "playlist/ui/accessible_rows.h"
#include "playlist/ui/border_scroll.h"
#include "playlist/ui/row_model.h"
#include "playlist/ui/row_selection.h"

namespace qublet {

class RowDelegate;

// The list of the main window: twelve columns over the row store, selected by the rows' own flags. What mouse, keys
// and drops mean beyond selecting is said by signals; points are those of the viewport.
class RowList : public QTreeView {
  Q_OBJECT

 public:
  explicit RowList(QWidget* parent = nullptr);

  // Shows the rows; before this the list is empty. `model` outlives the list.
  void ShowRows(RowModel* model);
  const RowStore& Rows() const { return model_->Rows(); }

  // Thin lines between rows and columns; the row under the pointer underlined.
  void SetGridLines(bool shown);
  void SetHotTracking(bool on);

  // What stands in the list while it is empty.
  static QString EmptyHint();

  // Row under a point of the viewport, from 0; only y counts. The row count when there is none.
  int GetRowAtPoint(int y) const;

  // Scrolls up or down; the columns stay where they are.
  void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

 signals:
  void rowsSelected();
  void keyPressed(int key);
  // The context-menu key or Shift+F10; the point is at the current row, which can be seen then.
  void menuKeyPressed(QPoint point);
  void mousePressed();
  void mouseMoved(QPoint point, Qt::MouseButtons held);
  void mouseReleased(QPoint point, Qt::MouseButton button);
  // The left button has taken hold of the selected rows and moves away with them.
  void dragBegun();
  // Files of this machine, in their order.
  void filesDropped(const std::vector<std::string>& native_paths, QPoint point);
  // By the left button, on a row or beside the rows.
  void doubleClickedAnywhere();

 protected:
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;
  bool event(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  QModelIndexList selectedIndexes() const override;
  void dataChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) override;
  void rowsInserted(const QModelIndex& parent, int first, int last) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
  bool IsSelected(const QModelIndex& index) const;
  void SpeakSelection();
  void SpeakFocus();
  void PressMenuKey();
  void MoveByKey(QKeyEvent* event);
  void HeldAt(QPoint point);
  void ShowDropLine(std::optional<int> row);
  void PaintHint(QPainter& painter) const;
  void PaintDropLine(QPainter& painter) const;
  bool MayDrop(const QDropEvent& event) const;
  QItemSelectionModel::SelectionFlags MouseCommand(const QModelIndex& index, const QMouseEvent& event) const;

  RowModel* model_ = nullptr;
  RowSelection* selection_ = nullptr;
  RowDelegate* delegate_ = nullptr;
  SpokenSelection spoken_;
  // What the mouse holds goes on where the list scrolls beneath it.
  BorderScroll border_scroll_{*this, [this](QPoint point) { HeldAt(point); }};
  Qt::MouseButtons held_;
  std::optional<int> drop_row_;  // a drop will land before this row, from 0
  QPoint pressed_at_;
  bool pressed_on_selected_ = false;
  bool may_drag_ = false;      // the left button holds selected rows
  bool offers_files_ = false;  // the drag over the list
};

}  // namespace qublet

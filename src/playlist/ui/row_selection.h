#pragma once

#include <QItemSelectionModel>
#include <vector>

#include "playlist/ui/row_model.h"

namespace qublet {

// Selection and current row, kept in the row store and nowhere else: one flag a row, so that selecting every second
// of 32,767 rows costs one pass. Qt's own ranges stay empty; who wants to know asks the row.
class RowSelection : public QItemSelectionModel {
  Q_OBJECT

 public:
  RowSelection(RowModel* model, QObject* parent);

  void select(const QModelIndex& index, SelectionFlags command) override;
  void select(const QItemSelection& selection, SelectionFlags command) override;
  // Deselects all rows; the current one stays.
  void clear() override;
  void reset() override;
  // The focus has moved before the rows are selected.
  void setCurrentIndex(const QModelIndex& index, SelectionFlags command) override;

  // What is drawn from now on by Shift or by the mouse comes to what is selected now.
  void BeginRange() { base_.clear(); }

 signals:
  // The flags have changed, or the focused row with them: once, however many rows.
  void rowsSelected();

 private:
  void MarkRanges(const QItemSelection& selection, std::vector<char>& touched) const;
  bool Apply(const std::vector<char>& touched, SelectionFlags command) const;

  RowModel& model_;
  // The flags before the range that is being drawn by Shift or by the mouse.
  std::vector<char> base_;
  int told_focus_ = 0;
};

}  // namespace qublet

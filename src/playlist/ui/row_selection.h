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
  void clear() override;
  void reset() override;
  void setCurrentIndex(const QModelIndex& index, SelectionFlags command) override;

 signals:
  void rowsSelected();  // once after each change of the flags

 private:
  void MarkRanges(const QItemSelection& selection, std::vector<char>& touched) const;

  RowModel& model_;
  // The flags before the range that is being drawn by Shift or by the mouse.
  std::vector<char> base_;
};

}  // namespace qublet

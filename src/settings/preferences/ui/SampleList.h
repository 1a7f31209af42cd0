#pragma once

#include "playlist/ui/row_list.h"

namespace qublet {

// Two items of a list, as they would look there.
class SampleList : public RowList {
  Q_OBJECT

 public:
  explicit SampleList(QWidget* parent = nullptr);

  // The columns as wide as what they hold.
  void FitColumns();
  QSize sizeHint() const override;

 private:
  RowStore rows_;
  RowModel model_{rows_};
};

}  // namespace qublet

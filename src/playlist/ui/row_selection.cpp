#include "playlist/ui/row_selection.h"

#include <QSignalBlocker>

namespace qublet {
namespace {

std::vector<char> FlagsOf(const RowStore& rows) {
  std::vector<char> flags(static_cast<std::size_t>(rows.Count()));
  for (int i = 1; i <= rows.Count(); ++i) flags[static_cast<std::size_t>(i - 1)] = rows.At(i).selected;
  return flags;
}

}  // namespace

RowSelection::RowSelection(RowModel* model, QObject* parent) : QItemSelectionModel(model, parent), model_(*model) {}

void RowSelection::select(const QModelIndex& index, SelectionFlags command) {
  select(QItemSelection(index, index), command);
}

void RowSelection::MarkRanges(const QItemSelection& selection, std::vector<char>& touched) const {
  for (const QItemSelectionRange& range : selection) {
    for (int row = std::max(range.top(), 0); row <= range.bottom(); ++row) {
      if (static_cast<std::size_t>(row) < touched.size()) touched[static_cast<std::size_t>(row)] = 1;
    }
  }
}

// Whether a flag has changed.
bool RowSelection::Apply(const std::vector<char>& touched, SelectionFlags command) const {
  bool changed = false;
  model_.Rows().SelectWhere([&](int index, const Row& row) {
    const auto i = static_cast<std::size_t>(index - 1);
    bool selected = base_[i] != 0;
    if (touched[i])
      selected = command & Toggle ? !selected : command & Select ? true : selected && !(command & Deselect);
    changed = changed || selected != row.selected;
    return selected;
  });
  return changed;
}

void RowSelection::select(const QItemSelection& selection, SelectionFlags command) {
  if (command == NoUpdate) return;
  const RowStore& rows = model_.Rows();
  const auto count = static_cast<std::size_t>(rows.Count());
  // A range being drawn starts again from the flags that stood before it.
  if (!(command & Current) || base_.size() != count) base_ = FlagsOf(rows);
  if (command & Clear) base_.assign(count, 0);
  std::vector<char> touched(count, 0);
  MarkRanges(selection, touched);
  const bool changed = Apply(touched, command);
  if (!(command & Current)) base_.clear();
  // The toolkit selects twice where it moves the focus by a key.
  if (changed || told_focus_ != rows.FocusedRow()) {
    told_focus_ = rows.FocusedRow();
    emit rowsSelected();
  }
}

void RowSelection::clear() {
  select(QItemSelection(), Clear);
}

void RowSelection::reset() {
  // The model was laid anew: the flags are the rows' own, only Qt's notion of a current index is void.
  const QSignalBlocker blocker(this);
  base_.clear();
  clearCurrentIndex();
}

void RowSelection::setCurrentIndex(const QModelIndex& index, SelectionFlags command) {
  QItemSelectionModel::setCurrentIndex(index, NoUpdate);
  if (index.isValid()) model_.Rows().SetFocusedRow(index.row() + 1);
  select(index, command);
}

}  // namespace qublet

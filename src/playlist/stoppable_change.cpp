#include "playlist/stoppable_change.h"

#include <utility>

namespace qublet {

StoppableChange::StoppableChange(Document& document, Feedback& feedback)
    : wait_(feedback),
      document_(document),
      feedback_(feedback),
      focused_row_(document.ListView1.FocusedRow()),
      changed_(document.PlaylistChanged),
      recovered_(document.Recovered) {
  const RowStore& list = document.ListView1;
  for (int i = 1; i <= list.Count(); ++i) {
    rows_.push_back(&list.At(i));
    selected_.push_back(list.At(i).selected);
  }
}

StoppableChange::~StoppableChange() {
  if (feedback_.Stopped()) Restore();
}

void StoppableChange::Restore() {
  RowStore& list = document_.ListView1;
  const RowStore::Bulk bulk(list);
  if (cleared_.empty()) {
    RemoveNewRows();
  } else {
    list.Clear();
    list.Adopt(1, std::move(cleared_));
  }
  list.SelectWhere([&](int index, const Row&) { return selected_[static_cast<std::size_t>(index - 1)]; });
  list.SetFocusedRow(focused_row_);
  document_.PlaylistChanged = changed_;
  document_.Recovered = recovered_;
}

void StoppableChange::RemoveNewRows() {
  auto old = rows_.cbegin();
  document_.ListView1.RemoveIf([&](const Row& row) {
    if (old == rows_.cend() || *old != &row) return true;
    ++old;
    return false;
  });
}

}  // namespace qublet

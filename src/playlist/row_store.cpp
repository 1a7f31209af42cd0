#include "playlist/row_store.h"

#include <algorithm>
#include <iterator>

namespace qublet {

std::size_t RowStore::Place(int index) const {
  if (index < 1 || index > Count()) throw Failure("no such row");
  return static_cast<std::size_t>(index - 1);
}

void RowStore::TellChanged(int first, int last) {
  if (bulk_ > 0) {
    bulk_first_ = bulk_first_ == 0 ? first : std::min(bulk_first_, first);
    bulk_last_ = std::max(bulk_last_, last);
  } else if (listener_ != nullptr) {
    listener_->RowsChanged(first, last);
  }
}

bool RowStore::BeginStructureChange() {
  if (bulk_ == 0) return listener_ != nullptr;
  if (!bulk_reset_ && listener_ != nullptr) listener_->BeforeReset();
  bulk_reset_ = true;
  return false;
}

void RowStore::EndBulk() {
  if (--bulk_ > 0) return;
  const bool reset = std::exchange(bulk_reset_, false);
  const bool focus = std::exchange(bulk_focus_, false);
  const int show = std::exchange(bulk_show_, 0);
  const int first = std::exchange(bulk_first_, 0);
  const int last = std::exchange(bulk_last_, 0);
  if (listener_ == nullptr) return;
  if (reset) {
    listener_->AfterReset();
  } else if (first > 0) {
    listener_->RowsChanged(first, std::min(last, Count()));
  }
  if (focus || reset) listener_->FocusMoved();
  if (show > 0 && show <= Count()) listener_->ShowRow(show);
}

void RowStore::Insert(int index, std::vector<Row> rows) {
  if (index < 1 || index > Count() + 1) throw Failure("no such row");
  if (rows.empty()) return;
  const int count = static_cast<int>(rows.size());
  if (rows.size() > static_cast<std::size_t>(MaxRows - Count())) throw Failure("the list is full");

  std::vector<std::unique_ptr<Row>> fresh;
  fresh.reserve(rows.size());
  for (Row& row : rows) fresh.push_back(std::make_unique<Row>(std::move(row)));

  const bool tell = BeginStructureChange();
  if (tell) listener_->BeforeInsert(index, count);
  rows_.insert(rows_.begin() + (index - 1), std::make_move_iterator(fresh.begin()),
               std::make_move_iterator(fresh.end()));
  if (focused_ >= index) focused_ += count;
  if (tell) listener_->AfterInsert();
}

void RowStore::Remove(int index) {
  const std::size_t place = Place(index);
  const bool tell = BeginStructureChange();
  if (tell) listener_->BeforeRemove(index, 1);
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(place));
  if (tell) listener_->AfterRemove();
  // The focus of the row itself falls to the next one.
  if (focused_ >= index) MoveFocus(std::min(focused_ > index ? focused_ - 1 : index, Count()));
}

int RowStore::RemoveIf(const std::function<bool(const Row&)>& doomed) {
  if (std::none_of(rows_.begin(), rows_.end(), [&](const auto& row) { return doomed(*row); })) return 0;
  Bulk bulk(*this);
  BeginStructureChange();
  std::size_t kept = 0;
  int focus = 0;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    // The focus of a row that goes falls to the next one that stays.
    if (static_cast<int>(i) + 1 == focused_) focus = static_cast<int>(kept) + 1;
    if (!doomed(*rows_[i])) std::swap(rows_[kept++], rows_[i]);
  }
  const int gone = Count() - static_cast<int>(kept);
  rows_.resize(kept);
  MoveFocus(std::min(focus, Count()));
  return gone;
}

void RowStore::Clear() {
  if (rows_.empty()) return;
  Bulk bulk(*this);
  BeginStructureChange();
  rows_.clear();
  focused_ = 0;
}

void RowStore::Reorder(const std::vector<int>& order) {
  std::vector<bool> taken(rows_.size());
  if (order.size() != rows_.size()) throw Failure("no order of these rows");
  for (const int from : order) {
    if (taken[Place(from)]) throw Failure("a row is named twice");
    taken[Place(from)] = true;
  }

  std::vector<std::unique_ptr<Row>> moved;
  moved.reserve(rows_.size());
  int first = 0;
  int last = 0;
  int focus = 0;
  for (const int from : order) {
    const int to = static_cast<int>(moved.size()) + 1;
    moved.push_back(std::move(rows_[static_cast<std::size_t>(from - 1)]));
    if (from == focused_) focus = to;
    if (from == to) continue;
    if (first == 0) first = to;
    last = to;
  }
  rows_ = std::move(moved);
  if (first == 0) return;
  Bulk bulk(*this);
  TellChanged(first, last);
  if (focus != focused_) MoveFocus(focus);
}

void RowStore::SetCell(int index, int column, std::string text) {
  if (column < 0 || column >= kColumnCount) throw Failure("no such column");
  rows_[Place(index)]->cells[static_cast<std::size_t>(column)] = std::move(text);
  TellChanged(index, index);
}

void RowStore::SetIcon(int index, RowIcon icon) {
  rows_[Place(index)]->icon = icon;
  TellChanged(index, index);
}

void RowStore::SetGhosted(int index, bool ghosted) {
  rows_[Place(index)]->ghosted = ghosted;
  TellChanged(index, index);
}

void RowStore::SetSelected(int index, bool selected) {
  Row& row = *rows_[Place(index)];
  if (row.selected == selected) return;
  row.selected = selected;
  TellChanged(index, index);
}

void RowStore::SelectWhere(const std::function<bool(int index, const Row& row)>& wanted) {
  Bulk bulk(*this);
  int index = 0;
  for (const std::unique_ptr<Row>& row : rows_) {
    const bool selected = wanted(++index, *row);
    if (selected == row->selected) continue;
    row->selected = selected;
    TellChanged(index, index);
  }
}

int RowStore::SelectedCount() const {
  return static_cast<int>(std::count_if(rows_.begin(), rows_.end(), [](const auto& row) { return row->selected; }));
}

void RowStore::SwapRows(int a, int b) {
  Bulk bulk(*this);
  std::unique_ptr<Row>& first = rows_[Place(a)];
  std::unique_ptr<Row>& second = rows_[Place(b)];
  std::swap(first, second);
  std::swap(first->selected, second->selected);
  second->selected = true;
  TellChanged(std::min(a, b), std::max(a, b));
  EnsureVisible(b);
}

void RowStore::MoveFocus(int index) {
  focused_ = index;
  if (bulk_ > 0) {
    bulk_focus_ = true;
  } else if (listener_ != nullptr) {
    listener_->FocusMoved();
  }
}

void RowStore::SetFocusedRow(int index) {
  if (index != 0) Place(index);
  if (index != focused_) MoveFocus(index);
}

void RowStore::EnsureVisible(int index) {
  SetFocusedRow(static_cast<int>(Place(index)) + 1);
  if (bulk_ > 0) {
    bulk_show_ = index;
  } else if (listener_ != nullptr) {
    listener_->ShowRow(index);
  }
}

}  // namespace qublet

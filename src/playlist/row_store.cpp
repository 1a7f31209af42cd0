#include "playlist/row_store.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

namespace qublet {

std::size_t RowStore::Place(int index) const {
  if (index < 1 || index > Count()) throw Failure("no such row");
  return static_cast<std::size_t>(index - 1);
}

void RowStore::ExpectPaths(int index) const {
  constexpr std::size_t kCacheLine = 64;          // bytes
  constexpr int kRowAhead = 24, kTextAhead = 12;  // the row itself has to be there before its texts can be asked for
  if (index + kRowAhead <= Count()) {
    const Row& row = At(index + kRowAhead);
    __builtin_prefetch(&row.cells[kPath]);
    __builtin_prefetch(&row.cells[kFileName]);
  }
  if (index + kTextAhead <= Count()) {
    const Row& row = At(index + kTextAhead);
    __builtin_prefetch(row.cells[kPath].data());
    __builtin_prefetch(row.cells[kPath].data() + kCacheLine);  // most paths are longer than one
    __builtin_prefetch(row.cells[kFileName].data());
    __builtin_prefetch(row.cells[kFileName].data() + kCacheLine / 2);  // many names lie across two
  }
}

void RowStore::SetListener(RowListener* listener) {
  if (listener != nullptr && listener_ != nullptr) throw std::logic_error("the rows have a listener already");
  listener_ = listener;
  told_count_ = Count();
}

void RowStore::NoteChanged(int first, int last) {
  news_.first = news_.first == 0 ? first : std::min(news_.first, first);
  news_.last = std::max(news_.last, last);
}

void RowStore::EndBulk() {
  if (--bulk_ > 0) return;
  const News news = std::exchange(news_, {});
  if (listener_ != nullptr) Tell(news);
}

void RowStore::Tell(const News& news) {
  const int count = Count();
  const int before = std::exchange(told_count_, count);
  // The focus is never told to be on a row that isn't there yet, nor left on one that goes.
  if (count > before) listener_->CountChanged(count);
  if (news.focus) listener_->FocusMoved();
  if (count < before) listener_->CountChanged(count);
  const int last = std::min({news.last, before, count});
  if (news.first > 0 && news.first <= last) listener_->RowsChanged(news.first, last);
  if (news.show > 0 && news.show <= count) listener_->ShowRow(news.show);
}

void RowStore::Insert(int index, std::vector<Row> rows) {
  std::vector<std::unique_ptr<Row>> fresh;
  fresh.reserve(rows.size());
  for (Row& row : rows) fresh.push_back(std::make_unique<Row>(std::move(row)));
  Adopt(index, std::move(fresh));
}

void RowStore::Adopt(int index, std::vector<std::unique_ptr<Row>> rows) {
  if (index < 1 || index > Count() + 1) throw Failure("no such row");
  if (rows.empty()) return;
  const int count = static_cast<int>(rows.size());
  if (rows.size() > static_cast<std::size_t>(MaxRows - Count())) throw Failure("the list is full");

  const Bulk bulk(*this);
  rows_.insert(rows_.begin() + (index - 1), std::make_move_iterator(rows.begin()),
               std::make_move_iterator(rows.end()));
  NoteChanged(index, MaxRows);
  ++changes_;
  if (focused_ >= index) MoveFocus(focused_ + count);
}

void RowStore::Remove(int index) {
  const std::size_t place = Place(index);
  const Bulk bulk(*this);
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(place));
  NoteChanged(index, MaxRows);
  ++changes_;
  // The focus of the row itself falls to the next one.
  if (focused_ >= index) MoveFocus(std::min(focused_ > index ? focused_ - 1 : index, Count()));
}

int RowStore::RemoveIf(const std::function<bool(const Row&)>& doomed) {
  std::size_t kept = 0;
  int first = 0;
  int focus = 0;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const int index = static_cast<int>(i) + 1;
    // The focus of a row that goes falls to the next one that stays.
    if (index == focused_) focus = static_cast<int>(kept) + 1;
    if (!doomed(*rows_[i])) {
      std::swap(rows_[kept++], rows_[i]);
    } else if (first == 0) {
      first = index;
    }
  }
  if (first == 0) return 0;
  const int gone = Count() - static_cast<int>(kept);
  const Bulk bulk(*this);
  rows_.resize(kept);
  NoteChanged(first, MaxRows);
  ++changes_;
  if (focused_ > 0) MoveFocus(std::min(focus, Count()));
  return gone;
}

std::vector<std::unique_ptr<Row>> RowStore::TakeAll() {
  const Bulk bulk(*this);
  ++changes_;
  if (focused_ > 0) MoveFocus(0);
  return std::exchange(rows_, {});
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
  const Bulk bulk(*this);
  NoteChanged(first, last);
  ++changes_;
  if (focus != focused_) MoveFocus(focus);
}

void RowStore::SetCell(int index, int column, std::string text) {
  if (column < 0 || column >= kColumnCount) throw Failure("no such column");
  const Bulk bulk(*this);
  Row& row = *rows_[Place(index)];
  std::string& cell = row.cells[static_cast<std::size_t>(column)];
  if ((column == kFileName || column == kPath) && cell != text) row.kept.reset();
  cell = std::move(text);
  NoteChanged(index, index);
  ++changes_;
}

void RowStore::SetIcon(int index, RowIcon icon) {
  const Bulk bulk(*this);
  rows_[Place(index)]->icon = icon;
  NoteChanged(index, index);
}

void RowStore::SetGhosted(int index, bool ghosted) {
  const Bulk bulk(*this);
  rows_[Place(index)]->ghosted = ghosted;
  NoteChanged(index, index);
}

void RowStore::SetSelected(int index, bool selected) {
  Row& row = *rows_[Place(index)];
  if (row.selected == selected) return;
  const Bulk bulk(*this);
  row.selected = selected;
  NoteChanged(index, index);
}

void RowStore::SelectWhere(const std::function<bool(int index, const Row& row)>& wanted) {
  const Bulk bulk(*this);
  int index = 0;
  for (const std::unique_ptr<Row>& row : rows_) {
    const bool selected = wanted(++index, *row);
    if (selected == row->selected) continue;
    row->selected = selected;
    NoteChanged(index, index);
  }
}

int RowStore::SelectedCount() const {
  return static_cast<int>(std::count_if(rows_.begin(), rows_.end(), [](const auto& row) { return row->selected; }));
}

void RowStore::SwapRows(int a, int b) {
  const Bulk bulk(*this);
  std::unique_ptr<Row>& first = rows_[Place(a)];
  std::unique_ptr<Row>& second = rows_[Place(b)];
  std::swap(first, second);
  std::swap(first->selected, second->selected);
  second->selected = true;
  NoteChanged(std::min(a, b), std::max(a, b));
  ++changes_;
  EnsureVisible(b);
}

void RowStore::MoveFocus(int index) {
  const Bulk bulk(*this);
  focused_ = index;
  news_.focus = true;
}

void RowStore::SetFocusedRow(int index) {
  if (index != 0) Place(index);
  if (index != focused_) MoveFocus(index);
}

void RowStore::EnsureVisible(int index) {
  Place(index);
  const Bulk bulk(*this);
  SetFocusedRow(index);
  news_.show = index;
}

}  // namespace qublet

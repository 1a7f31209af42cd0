#include "playlist/row_order.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <functional>
#include <future>
#include <string_view>
#include <thread>
#include <vector>

#include "playlist/paths/numbers.h"
#include "playlist/shuffle.h"

namespace qublet {
namespace {

template <typename Key>
struct KeyedRow {
  Key key;
  int row = 0;
};

// A text by its collation key, of which the first bytes are at hand.
struct TextKey {
  std::uint64_t head = 0;
  const std::string* collation = nullptr;

  bool operator<(const TextKey& other) const {
    if (head != other.head) return head < other.head;
    return *collation < *other.collation;
  }
};

std::uint64_t HeadOf(std::string_view key) {
  std::uint64_t head = 0;
  for (std::size_t i = 0; i < sizeof head; ++i) {
    head = head << 8 | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0U);
  }
  return head;
}

double WholeNumber(const std::string& cell) {
  return cell.empty() ? 0 : std::trunc(TextToNumber(cell));
}

// Numbers between any other characters: year, month, day and, if there, hour, minute and second.
std::vector<int> NumbersIn(std::string_view text) {
  std::vector<int> numbers;
  const char* const end = text.data() + text.size();
  for (const char* at = text.data(); at < end;) {
    int number = 0;
    const auto [stop, error] = std::from_chars(*at == '-' ? at + 1 : at, end, number);
    if (error == std::errc()) numbers.push_back(number);
    at = error == std::errc::invalid_argument ? at + 1 : stop;
  }
  return numbers;
}

// A number that grows with the date: year, month, day, hour, minute and second, two digits each but the year.
double DateNumber(const std::string& cell) {
  constexpr std::array<int, 6> kLeast{0, 1, 1, 0, 0, 0};
  constexpr std::array<int, 6> kMost{9999, 12, 31, 23, 59, 59};
  const std::vector<int> fields = NumbersIn(cell);
  if (fields.size() < 3 || fields.size() > kMost.size()) throw Failure("not a date", cell);
  double number = 0;
  for (std::size_t i = 0; i < kMost.size(); ++i) {
    const int field = i < fields.size() ? fields[i] : 0;
    if (field < kLeast[i] || field > kMost[i]) throw Failure("not a date", cell);
    number = number * 100 + field;
  }
  return number;
}

const std::string& CellOf(const RowStore& rows, int row, int lncol) {
  return rows.At(row).cells[static_cast<std::size_t>(lncol - 1)];
}

// std::stable_sort, one half beside the other.
template <typename Entry, typename Order>
void SortHalves(std::vector<Entry>& entries, Order before) {
  const auto middle = entries.begin() + static_cast<std::ptrdiff_t>(entries.size() / 2);
  std::future<void> front = std::async([&] { std::stable_sort(entries.begin(), middle, before); });
  std::stable_sort(middle, entries.end(), before);
  front.get();
  std::inplace_merge(entries.begin(), middle, entries.end(), before);
}

template <typename Key>
void SortByKeys(RowStore& rows, std::vector<KeyedRow<Key>> keyed, bool descending) {
  if (descending) {
    SortHalves(keyed, [](const auto& a, const auto& b) { return b.key < a.key; });
  } else {
    SortHalves(keyed, [](const auto& a, const auto& b) { return a.key < b.key; });
  }
  std::vector<int> order;
  order.reserve(keyed.size());
  for (const auto& entry : keyed) order.push_back(entry.row);
  rows.Reorder(order);
}

// Calls `work` with parts of the rows from `first` to `last`, at the same time on each core.
void InParts(int first, int last, const std::function<void(int first, int last)>& work) {
  const int cores = static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
  const int share = (last - first) / cores + 1;
  std::vector<std::future<void>> helpers;
  for (; last - first >= share; first += share) helpers.push_back(std::async(work, first, first + share - 1));
  work(first, last);
  for (std::future<void>& helper : helpers) helper.get();
}

std::vector<std::string> KeysOf(const RowStore& rows, int lncol, const Collation& collation) {
  std::vector<std::string> keys(static_cast<std::size_t>(rows.Count()));
  InParts(1, rows.Count(), [&](int first, int last) {
    for (int i = first; i <= last; ++i) {
      // Neighbours are often alike: the folder of an album, the rate of a collection.
      const bool alike = i > first && CellOf(rows, i, lncol) == CellOf(rows, i - 1, lncol);
      const auto place = static_cast<std::size_t>(i - 1);
      keys[place] = alike ? keys[place - 1] : collation.Key(CellOf(rows, i, lncol));
    }
  });
  return keys;
}

void SortByTexts(RowStore& rows, int lncol, const Collation& collation, bool descending) {
  const std::vector<std::string> keys = KeysOf(rows, lncol, collation);
  std::vector<KeyedRow<TextKey>> keyed;
  keyed.reserve(keys.size());
  for (const std::string& key : keys) {
    const int row = static_cast<int>(keyed.size()) + 1;
    keyed.push_back({{HeadOf(key), &key}, row});
  }
  SortByKeys(rows, std::move(keyed), descending);
}

void SortByNumbers(RowStore& rows, int lncol, double (*number)(const std::string& cell), bool descending) {
  std::vector<KeyedRow<double>> keyed;
  keyed.reserve(static_cast<std::size_t>(rows.Count()));
  for (int i = 1; i <= rows.Count(); ++i) keyed.push_back({number(CellOf(rows, i, lncol)), i});
  SortByKeys(rows, std::move(keyed), descending);
}

std::vector<int> PresentOrder(const RowStore& rows) {
  std::vector<int> order(static_cast<std::size_t>(rows.Count()));
  for (std::size_t i = 0; i < order.size(); ++i) order[i] = static_cast<int>(i) + 1;
  return order;
}

// Shows the rows as if each of those between had been shown on the way; the last one gets the focus.
void ShowMoved(RowStore& rows, int first, int last) {
  rows.EnsureVisible(first);
  rows.EnsureVisible(last);
}

// By one row towards the top (`step` -1) or the bottom (1), the foremost first.
void MoveRows(Document& document, int step) {
  RowStore& rows = document.ListView1;
  const int end = step < 0 ? 1 : rows.Count();
  if (rows.Count() == 0 || rows.At(end).selected) return;
  std::vector<int> order = PresentOrder(rows);
  int first = 0;
  int last = 0;
  for (int i = end - step; i >= 1 && i <= rows.Count(); i -= step) {
    if (!rows.At(i).selected) continue;
    last = i + step;
    if (first == 0) first = last;
    std::swap(order[static_cast<std::size_t>(i - 1)], order[static_cast<std::size_t>(last - 1)]);
  }
  if (first == 0) return;
  rows.Reorder(order);
  ShowMoved(rows, first, last);
  document.PlaylistChanged = true;
}

// The selected rows before the others, or behind them.
std::vector<int> PartedOrder(const RowStore& rows, bool selected_first) {
  std::vector<int> order = PresentOrder(rows);
  std::stable_partition(order.begin(), order.end(), [&](int row) { return rows.At(row).selected == selected_first; });
  return order;
}

}  // namespace

ColumnSort SortOfColumn(int clicked) {
  switch (clicked - 1) {
    case kTime:
      return {kHiddenLen + 1, SortType::kNumber};
    case kSize:
      return {kHiddenSize + 1, SortType::kNumber};
    case kOriginalOrder:
      return {kOriginalOrder + 1, SortType::kNumber};
    default:
      return {clicked, SortType::kText};
  }
}

bool msSortListview(RowStore& lsv, ListSort& sort, int lncol, SortType lnType, const Collation& collation) {
  const ListSort next{lncol - 1, sort.SortKey == lncol - 1 && sort.SortOrder == 0 ? 1 : 0};
  const bool descending = next.SortOrder == 1;
  const bool sorted = Guarded([&] {
    if (lncol < 1 || lncol > kColumnCount) throw Failure("no such column");
    if (lnType == SortType::kText) {
      SortByTexts(lsv, lncol, collation, descending);
    } else {
      SortByNumbers(lsv, lncol, lnType == SortType::kDate ? DateNumber : WholeNumber, descending);
    }
  });
  if (sorted) sort = next;
  return sorted;
}

void MoveRowsUp(Document& document) {
  MoveRows(document, -1);
}

void MoveRowsDown(Document& document) {
  MoveRows(document, 1);
}

void MoveRowsToTop(RowStore& rows) {
  const int count = rows.SelectedCount();
  if (count == 0) return;
  rows.Reorder(PartedOrder(rows, true));
  ShowMoved(rows, 1, count);
}

void MoveRowsToBottom(RowStore& rows) {
  if (rows.SelectedCount() == 0) return;
  rows.Reorder(PartedOrder(rows, false));
  rows.EnsureVisible(rows.Count());
}

void ShuffleSelection(RowStore& rows, std::int16_t& SHUFFLEINT, Random& random) {
  if (SHUFFLEINT == 0) SHUFFLEINT = 1;
  std::vector<int> slots;
  for (int i = 1; i <= rows.Count(); ++i) {
    if (rows.At(i).selected) slots.push_back(i);
  }
  if (slots.size() < 2) return;
  std::vector<int> order = PresentOrder(rows);
  int shown = 0;
  for (int pass = 0; pass <= SHUFFLEINT; ++pass) shown = ShuffleSelectionOnce(slots, order, random);
  if (shown == 0) return;
  rows.Reorder(order);
  rows.EnsureVisible(shown);
}

}  // namespace qublet

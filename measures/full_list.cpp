#include "full_list.h"

#include <algorithm>
#include <cstdio>
#include <random>
#include <utility>

#include "platform/collation.h"
#include "platform/random.h"
#include "playlist/row_order.h"
#include "playlist/selection.h"

namespace qublet::measures {
namespace {

using Rows = std::vector<std::unique_ptr<Row>>;
using Job = std::function<void()>;

Row MakeRow(int number) {
  const int seconds = 60 + number * 7919 % 600;
  char name[64];
  std::snprintf(name, sizeof name, "%02d - A title %d of usual length.mp3", number % 20 + 1, number * 31337 % 9973);
  char folder[64];
  std::snprintf(folder, sizeof folder, "z:\\home\\u\\Music\\Artist %02d\\Album %02d\\", number / 400,
                number / 20 % 20);
  Row row;
  row.cells = {name,
               "3:20",
               "4 Mb",
               folder,
               "MPEG 1.0",
               "Layer III",
               "128 Kbit",
               "44100 Khz",
               "Joint Stereo",
               std::to_string(seconds),
               std::to_string(seconds * 16'000),
               std::to_string(number)};
  return row;
}

bool EverySecond(int row) {
  return row % 2 == 1;
}
bool Every(int) {
  return true;
}
bool MiddleHalf(int row) {
  return row > RowStore::MaxRows / 4 && row <= RowStore::MaxRows * 3 / 4;
}

template <typename Key>
Job StableSort(std::vector<std::pair<Key, Row*>> keys) {
  auto kept = std::make_shared<std::vector<std::pair<Key, Row*>>>(std::move(keys));
  return [kept] {
    std::stable_sort(kept->begin(), kept->end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  };
}

Job SortTimes(Rows& rows) {
  std::vector<std::pair<double, Row*>> keys;
  for (const auto& row : rows) keys.emplace_back(std::stod(row->cells[kHiddenLen]), row.get());
  return StableSort(std::move(keys));
}

Job SortNames(Rows& rows) {
  const auto collation = OpenCollation();
  std::vector<std::pair<std::string, Row*>> keys;
  for (const auto& row : rows) keys.emplace_back(collation->Key(row->cells[kFileName]), row.get());
  return StableSort(std::move(keys));
}

Job PartRows(Rows& rows) {
  return [&rows] { std::stable_partition(rows.begin(), rows.end(), [](const auto& row) { return row->selected; }); };
}

Job SwapDown(Rows& rows) {
  return [&rows] {
    for (std::size_t i = rows.size() - 1; i-- > 0;) {
      if (rows[i]->selected) std::swap(rows[i], rows[i + 1]);
    }
  };
}

// Two passes of one draw and one exchange a row.
Job ShuffleRows(Rows& rows) {
  return [&rows] {
    SystemRandom random;
    for (int pass = 0; pass < 2; ++pass) {
      for (std::size_t left = rows.size(); left > 1; --left) {
        random.Reseed();
        std::swap(rows[left - 1], rows[static_cast<std::size_t>(random.Draw() * static_cast<double>(left))]);
      }
    }
  };
}

Job InvertRows(Rows& rows) {
  return [&rows] {
    for (const auto& row : rows) row->selected = !row->selected;
  };
}

Job AlternateRows(Rows& rows) {
  return [&rows] {
    bool keep = false;
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
      if (!(*row)->selected) continue;
      (*row)->selected = keep;
      keep = !keep;
    }
  };
}

Job EraseRows(Rows& rows) {
  return [&rows] { std::erase_if(rows, [](const auto& row) { return row->selected; }); };
}

void SortByColumn(Document& list, int column) {
  static const std::unique_ptr<Collation> collation = OpenCollation();
  ListSort sort;
  const auto [lncol, lnType] = SortOfColumn(column + 1);
  msSortListview(list.ListView1, sort, lncol, lnType, *collation);
}

void Shuffle(Document& list) {
  SystemRandom random;
  std::int16_t intensity = 1;
  ShuffleSelection(list.ListView1, intensity, random);
}

}  // namespace

std::vector<Row> FullListRows() {
  std::vector<Row> rows;
  for (int number = 1; number <= RowStore::MaxRows; ++number) rows.push_back(MakeRow(number));
  std::shuffle(rows.begin(), rows.end(), std::mt19937(1));
  return rows;
}

const std::vector<ListJob>& ListJobs() {
  static const std::vector<ListJob> jobs{
      {"sort_by_time", EverySecond, [](Document& list) { SortByColumn(list, kTime); }, SortTimes},
      {"sort_by_filename", EverySecond, [](Document& list) { SortByColumn(list, kFileName); }, SortNames},
      {"odd_rows_to_top", EverySecond, [](Document& list) { MoveRowsToTop(list.ListView1); }, PartRows},
      {"half_the_rows_down", MiddleHalf, [](Document& list) { MoveRowsDown(list); }, SwapDown},
      {"shuffle_all", Every, Shuffle, ShuffleRows},
      {"invert", EverySecond, [](Document& list) { InvertSelection(list.ListView1); }, InvertRows},
      {"alternate", Every, [](Document& list) { AlternateSelection(list.ListView1); }, AlternateRows},
      {"remove_every_second", EverySecond, RemoveSelectedRows, EraseRows},
  };
  return jobs;
}

}  // namespace qublet::measures

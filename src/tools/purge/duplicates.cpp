#include "tools/purge/duplicates.h"

#include <algorithm>
#include <string>
#include <utility>

#include "playlist/paths/text.h"

namespace qublet {
namespace {

std::string KeyOf(const Row& row, DuplicateKey compareMode) {
  switch (compareMode) {
    case DuplicateKey::kName:
      return row.cells[kFileName];
    case DuplicateKey::kFolder:
      return row.cells[kPath];
    default:
      return row.FullPath();
  }
}

// Places in `keys`, from 0, in the order of a list that sorts by text.
std::vector<std::size_t> SortedPlaces(const Collection& keys) {
  std::vector<std::pair<std::string, std::size_t>> sorted;
  sorted.reserve(keys.size());
  for (const std::string& key : keys) sorted.emplace_back(FoldCase(key), sorted.size());
  // Pairs compare by their places last: as stable as it has to be.
  std::sort(sorted.begin(), sorted.end());
  std::vector<std::size_t> places;
  places.reserve(sorted.size());
  for (const auto& [key, place] : sorted) places.push_back(place);
  return places;
}

}  // namespace

Collection BuildDuplicateKeys(const RowStore& rows, DuplicateKey compareMode, bool fold_case) {
  Collection keys;
  keys.reserve(static_cast<std::size_t>(rows.Count()));
  for (int i = 1; i <= rows.Count(); ++i) {
    std::string key = KeyOf(rows.At(i), compareMode);
    keys.push_back(fold_case ? LowerCase(key) : std::move(key));
  }
  return keys;
}

std::vector<int> FindDuplicates(const Collection& DuplicateKeys, bool includeFirst) {
  const std::vector<std::size_t> places = SortedPlaces(DuplicateKeys);
  const auto row = [&](std::size_t sorted) { return static_cast<int>(places[sorted]) + 1; };
  const std::string nothing;
  const std::string* Previous = &nothing;
  int Run = 0;
  std::vector<int> DuplicateRows;
  for (std::size_t sorted = 0; sorted < places.size(); ++sorted) {
    const std::string& key = DuplicateKeys[places[sorted]];
    if (key != *Previous) {
      Previous = &key;
      Run = 0;
      continue;
    }
    // Before the first row there is none.
    if (++Run == 1 && includeFirst && sorted > 0) DuplicateRows.push_back(row(sorted - 1));
    DuplicateRows.push_back(row(sorted));
  }
  std::ranges::sort(DuplicateRows);
  return DuplicateRows;
}

}  // namespace qublet

#include "tools/purge/missing_items.h"

#include <algorithm>
#include <memory>

#include "playlist/paths/existing_files.h"
#include "playlist/paths/text.h"

namespace qublet {

MissingItems FindMissingItems(const RowStore& rows, const FileSystem& files, const std::function<void()>& alive) {
  MissingItems missing;
  const ExistingFiles existing(files);
  const std::unique_ptr<RealNames> names = files.FindRealNames();
  for (int i = 1; i <= rows.Count(); ++i) {
    rows.ExpectPaths(i);
    std::string path = rows.At(i).FullPath();
    const bool there = Contains(path, ":") && (existing.Has(rows.At(i).RealPath()) || names->Of(path));
    if (!there) {
      missing.MissingRows.push_back(i);
      missing.MissingPaths.push_back(std::move(path));
    }
    alive();
  }
  return missing;
}

std::string AbsentPlacesOf(const Collection& MissingPaths, const FileSystem& files,
                           const std::function<void()>& alive) {
  const std::unique_ptr<AbsentPlaces> absent = files.FindAbsentPlaces();
  int count = 0;
  Collection places;
  for (const std::string& path : MissingPaths) {
    const std::string place = absent->Of(path);
    alive();
    if (place.empty()) continue;
    ++count;
    if (std::ranges::find(places, place) == places.end()) places.push_back(place);
  }
  if (count == 0) return "";
  std::string line = std::to_string(count) + " of them lie on places that aren't there now: ";
  for (const std::string& place : places) line += (&place == &places.front() ? "" : ", ") + place;
  return line;
}

void RemoveRows(RowStore& rows, const std::vector<int>& numbers) {
  auto next = numbers.begin();
  int row = 0;
  rows.RemoveIf([&](const Row&) {
    const bool doomed = next != numbers.end() && *next == ++row;
    if (doomed) ++next;
    return doomed;
  });
}

}  // namespace qublet

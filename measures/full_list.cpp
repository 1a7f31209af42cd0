#include "full_list.h"

#include <locale.h>
#include <stdlib.h>

#include <algorithm>
#include <cstdio>
#include <random>
#include <unordered_set>
#include <utility>

#include "platform/collation.h"
#include "platform/random.h"
#include "playlist/list_status.h"
#include "playlist/row_order.h"
#include "playlist/selection.h"
#include "settings/app_settings.h"

namespace qublet::measures {
namespace {

using Rows = std::vector<std::unique_ptr<Row>>;
using Job = std::function<void()>;

Row MakeRow(int number) {
  const int seconds = 60 + number * 7919 % 600;
  char name[64];
  const char* form =
      number % 10 == 0 ? "%02d - \u00C9in Titel %d mit \u00DCmlauten.mp3" : "%02d - A title %d of usual length.mp3";
  std::snprintf(name, sizeof name, form, number % 20 + 1, number * 31337 % 9973);
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
  if (number % 5 == 0) row.icon = RowIcon::kBlue;
  return row;
}

bool EverySecond(int row) {
  return row % 2 == 1;
}
bool Every(int) {
  return true;
}
bool OneInAHundred(int row) {
  return row % 100 == 0;
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

Job SortNames(Rows& rows, const Collation& collation) {
  std::vector<std::pair<std::string, Row*>> keys;
  for (const auto& row : rows) keys.emplace_back(collation.Key(row->cells[kFileName]), row.get());
  return StableSort(std::move(keys));
}

Job PartRows(Rows& rows) {
  return [&rows] { std::stable_partition(rows.begin(), rows.end(), [](const auto& row) { return row->selected; }); };
}

Job PartRowsToBottom(Rows& rows) {
  return [&rows] { std::stable_partition(rows.begin(), rows.end(), [](const auto& row) { return !row->selected; }); };
}

Job SwapUp(Rows& rows) {
  return [&rows] {
    for (std::size_t i = 1; i < rows.size(); ++i) {
      if (rows[i]->selected) std::swap(rows[i], rows[i - 1]);
    }
  };
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

template <typename Wanted>
Job MarkRows(Rows& rows, Wanted wanted) {
  return [&rows, wanted] {
    for (const auto& row : rows) row->selected = wanted(*row);
  };
}

Job SelectRows(Rows& rows) {
  return MarkRows(rows, [](const Row&) { return true; });
}

Job DeselectRows(Rows& rows) {
  return MarkRows(rows, [](const Row&) { return false; });
}

Job SelectMarkedRows(Rows& rows) {
  return MarkRows(rows, [](const Row& row) { return row.icon >= RowIcon::kBlue; });
}

Job DrawRows(Rows& rows) {
  return [&rows] {
    SystemRandom random;
    for (const auto& row : rows) {
      random.Reseed();
      row->selected = random.Draw() >= 0.5;
    }
  };
}

Job SelectRowsInFolders(Rows& rows) {
  return [&rows] {
    std::unordered_set<std::string> folders;
    for (const auto& row : rows) {
      if (row->selected) folders.insert(row->cells[kPath]);
    }
    for (const auto& row : rows) row->selected = folders.contains(row->cells[kPath]);
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

void SortByColumn(FullList& list, int column, const Collation& collation) {
  ListSort sort;
  const auto [lncol, lnType] = SortOfColumn(column + 1);
  msSortListview(list.document.ListView1, sort, lncol, lnType, collation);
}

ListJob SortByName(const std::string& name, const std::string& action, std::shared_ptr<Collation> collation) {
  return {name,
          2.5,
          action,
          false,
          EverySecond,
          [collation](FullList& list) { SortByColumn(list, kFileName, *collation); },
          [collation](Rows& rows) { return SortNames(rows, *collation); }};
}

// Nothing where the system doesn't know the language.
std::shared_ptr<Collation> CollationOf(const char* locale) {
  const locale_t known = newlocale(LC_ALL_MASK, locale, nullptr);
  if (known == nullptr) return nullptr;
  freelocale(known);
  const char* const before = getenv("LC_ALL");
  const std::string kept = before != nullptr ? before : "";
  setenv("LC_ALL", locale, 1);
  std::shared_ptr<Collation> collation = OpenCollation();
  before != nullptr ? setenv("LC_ALL", kept.c_str(), 1) : unsetenv("LC_ALL");
  return collation;
}

void Shuffle(FullList& list) {
  SystemRandom random;
  std::int16_t intensity = 1;
  ShuffleSelection(list.document.ListView1, intensity, random);
}

void SelectByChance(FullList& list) {
  SystemRandom random;
  SelectAtRandom(list.document.ListView1, random);
}

// A command that needs the rows alone.
template <typename Command>
std::function<void(FullList&)> OnRows(Command command) {
  return [command](FullList& list) { command(list.document.ListView1); };
}

template <typename Command>
std::function<void(FullList&)> OnDocument(Command command) {
  return [command](FullList& list) { command(list.document); };
}

std::vector<Row> MakeRows() {
  std::vector<Row> rows;
  for (int number = 1; number <= RowStore::MaxRows; ++number) rows.push_back(MakeRow(number));
  std::shuffle(rows.begin(), rows.end(), std::mt19937(1));
  return rows;
}

std::vector<ListJob> MakeJobs() {
  const std::shared_ptr<Collation> users = OpenCollation();
  std::vector<ListJob> jobs{
      {"sort_time", 2.5, "MViewSortTime", false, EverySecond,
       [users](FullList& list) { SortByColumn(list, kTime, *users); }, SortTimes},
      SortByName("sort_filename", "MViewSortFilename", users),
      {"odd_rows_to_top", 4, "MEditSelTop", true, EverySecond, OnRows(MoveRowsToTop), PartRows},
      {"odd_rows_to_bottom", 4, "MEditSelBottom", true, EverySecond, OnRows(MoveRowsToBottom), PartRowsToBottom},
      {"half_the_rows_up", 4, "MEditMoveUp", true, MiddleHalf, OnDocument(MoveRowsUp), SwapUp},
      {"half_the_rows_down", 4, "MEditMoveDown", true, MiddleHalf, OnDocument(MoveRowsDown), SwapDown},
      {"shuffle_all", 4, "MEditSelShuffle", true, Every, Shuffle, ShuffleRows},
      {"invert", 4, "MEditSelInv", true, EverySecond, OnRows(InvertSelection), InvertRows},
      {"alternate", 4, "MEditSelAlt", true, Every, OnRows(AlternateSelection), AlternateRows},
      {"select_random", 4, "MEditSelRnd", true, EverySecond, SelectByChance, DrawRows},
      {"select_all", 4, "MEditSelAll", true, EverySecond, OnRows(SelectAll), SelectRows},
      {"select_none", 4, "MEditSelNone", true, EverySecond, [](FullList& list) { list.items.MEditSelNone_Click(); },
       DeselectRows},
      {"select_in_folder", 4, "MEditSelFol", true, OneInAHundred,
       [](FullList& list) { SelectInFolders(list.document.ListView1); }, SelectRowsInFolders},
      {"select_marked", 4, "MEditSelectMark", true, EverySecond, OnRows(SelectCheckMarked), SelectMarkedRows},
      {"remove_every_second", 4, "MEditRemove", true, EverySecond, OnDocument(RemoveSelectedRows), EraseRows},
  };
  // In a language with rules of its own, whatever the user's is.
  const std::shared_ptr<Collation> english = CollationOf("en_US.UTF-8");
  if (english != nullptr) jobs.push_back(SortByName("sort_filename_en_US", "", english));
  return jobs;
}

}  // namespace

const std::vector<Row>& FullListRows() {
  static const std::vector<Row> rows = MakeRows();
  return rows;
}

void FullList::Lay(const std::function<bool(int row)>& selected) {
  RowStore& rows = document.ListView1;
  rows.Clear();
  rows.Insert(1, FullListRows());
  rows.SelectWhere([&](int row, const Row&) { return selected(row); });
}

void FullList::Refresh() const {
  WorkOutStatus(document.ListView1, *files_, AppSettings(), ",");
}

const std::vector<ListJob>& ListJobs() {
  static const std::vector<ListJob> jobs = MakeJobs();
  return jobs;
}

}  // namespace qublet::measures

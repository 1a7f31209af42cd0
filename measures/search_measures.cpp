#include "search_measures.h"

#include <memory>
#include <stdexcept>
#include <string>

#include "full_list.h"
#include "playlist/paths/text.h"
#include "tools/search/search_rows.h"

namespace qublet::measures {
namespace {

constexpr const char* kText = "TITLE 4711 OF";  // in the names of few rows

void Demand(std::size_t found) {
  if (found == 0 || found > 10) throw std::runtime_error("not the rows that hold the text");
}

Contest SearchAgainstFind(Workplace&) {
  const auto list = std::make_shared<FullList>();
  list->Lay([](int) { return false; });
  const auto search = [list] {
    std::size_t found = 0;
    const double seconds =
        SecondsOf([&] { found = SearchRows(list->document.ListView1, kText, SearchOptions(), true).size(); });
    Demand(found);
    return seconds;
  };
  // Names and folders that are in lower case already, wherever the rows have theirs.
  const auto lower = std::make_shared<RowStore>();
  lower->Insert(1, FullListRows());
  for (int i = 1; i <= lower->Count(); ++i) {
    for (const int column : {kFileName, kPath})
      lower->SetCell(i, column, LowerCase(lower->At(i).cells[static_cast<std::size_t>(column)]));
  }
  const auto find = [lower] {
    const std::string text = LowerCase(kText);
    std::size_t found = 0;
    const double seconds = SecondsOf([&] {
      for (int i = 1; i <= lower->Count(); ++i) {
        const Row& row = lower->At(i);
        if (row.cells[kFileName].find(text) != text.npos || row.cells[kPath].find(text) != text.npos) ++found;
      }
    });
    Demand(found);
    return seconds;
  };
  return {search, find};
}

}  // namespace

std::vector<Measure> SearchMeasures() {
  return {{"search_32767", 2, SearchAgainstFind}};
}

}  // namespace qublet::measures

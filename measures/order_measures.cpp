#include "order_measures.h"

#include <charconv>
#include <stdexcept>

#include "full_list.h"

namespace qublet::measures {
namespace {

Run ByTheRules(const ListJob& job) {
  const auto list = std::make_shared<FullList>();
  return [&job, list] {
    list->Lay(job.selected);
    return SecondsOf([&] { job.command(*list); });
  };
}

Run ByTheBareAlgorithm(const ListJob& job) {
  return [&job] {
    std::vector<std::unique_ptr<Row>> copies;
    for (const Row& row : FullListRows()) {
      copies.push_back(std::make_unique<Row>(row));
      copies.back()->selected = job.selected(static_cast<int>(copies.size()));
    }
    const auto steps = job.floor(copies);
    return SecondsOf(steps);
  };
}

long ParsedTo(const std::string& cell) {
  long number = 0;
  std::from_chars(cell.data(), cell.data() + cell.size(), number);
  return number;
}

// One pass that parses two numbers a row.
double SumUp(const RowStore& rows) {
  long sum = 0;
  const double seconds = SecondsOf([&] {
    for (int i = 1; i <= rows.Count(); ++i) {
      const Row& row = rows.At(i);
      sum += ParsedTo(row.cells[kHiddenLen]) + ParsedTo(row.cells[kHiddenSize]);
    }
  });
  if (sum == 0) throw std::runtime_error("there is nothing to sum up");
  return seconds;
}

Contest RefreshAgainstOnePass(Workplace&) {
  const auto list = std::make_shared<FullList>();
  list->Lay([](int row) { return row % 2 == 1; });
  return {[list] { return SecondsOf([&] { list->Refresh(); }); }, [list] { return SumUp(list->document.ListView1); }};
}

}  // namespace

std::vector<Measure> OrderMeasures() {
  std::vector<Measure> measures;
  for (const ListJob& job : ListJobs()) {
    measures.push_back({job.name, job.goal, [&job](Workplace&) {
                          return Contest{ByTheRules(job), ByTheBareAlgorithm(job)};
                        }});
  }
  measures.push_back({"refresh_32767", 2, RefreshAgainstOnePass});
  return measures;
}

}  // namespace qublet::measures

#include "order_measures.h"

#include "full_list.h"

namespace qublet::measures {
namespace {

using SharedRows = std::shared_ptr<const std::vector<Row>>;

Run ByTheRules(const ListJob& job, const SharedRows& rows) {
  return [&job, rows] {
    Document list;
    list.ListView1.Insert(1, *rows);
    list.ListView1.SelectWhere([&](int row, const Row&) { return job.selected(row); });
    return SecondsOf([&] { job.command(list); });
  };
}

Run ByTheBareAlgorithm(const ListJob& job, const SharedRows& rows) {
  return [&job, rows] {
    std::vector<std::unique_ptr<Row>> copies;
    for (const Row& row : *rows) {
      copies.push_back(std::make_unique<Row>(row));
      copies.back()->selected = job.selected(static_cast<int>(copies.size()));
    }
    const auto steps = job.floor(copies);
    return SecondsOf(steps);
  };
}

}  // namespace

std::vector<Measure> OrderMeasures() {
  std::vector<Measure> measures;
  for (const ListJob& job : ListJobs()) {
    measures.push_back({job.name, 4, [&job](Workplace&) {
                          const auto rows = std::make_shared<const std::vector<Row>>(FullListRows());
                          return Contest{ByTheRules(job, rows), ByTheBareAlgorithm(job, rows)};
                        }});
  }
  return measures;
}

}  // namespace qublet::measures

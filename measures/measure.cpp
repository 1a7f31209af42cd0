#include "measure.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>

#include "workplace.h"

namespace qublet::measures {
namespace {

constexpr int kFewestRuns = 7;
constexpr int kMostRuns = 41;
constexpr double kPatience = 2;  // seconds, as long as there are enough runs

struct Medians {
  double ours = 0;
  double floor = 0;
};

// The two take turns, so that a busy moment of the machine strikes both. The first turn warms the caches. The shorter
// they are, the more often they run.
Medians TakeTurns(const Contest& contest) {
  contest.floor();
  contest.ours();
  std::vector<double> ours;
  std::vector<double> floor;
  const auto begin = std::chrono::steady_clock::now();
  const auto in_time = [&] {
    return std::chrono::steady_clock::now() - begin < std::chrono::duration<double>(kPatience);
  };
  for (int run = 0; run < kFewestRuns || (run < kMostRuns && in_time()); ++run) {
    floor.push_back(contest.floor());
    ours.push_back(contest.ours());
  }
  return {Median(ours), Median(floor)};
}

std::string Text(double value, Unit unit) {
  char text[64];
  const bool bytes = unit == Unit::kBytes;
  std::snprintf(text, sizeof text, bytes ? "%.0f bytes" : "%.2f ms", bytes ? value : value * 1000);
  return text;
}

bool Take(const Measure& measure, Workplace& workplace) {
  try {
    const Medians medians = TakeTurns(measure.prepare(workplace));
    const double ratio = medians.ours / medians.floor;
    const bool passes = ratio <= measure.goal;
    std::printf("%s\t%s\t%s\t%.2f\t%.2f\t%s\n", measure.name.c_str(), Text(medians.ours, measure.unit).c_str(),
                Text(medians.floor, measure.unit).c_str(), ratio, measure.goal, passes ? "pass" : "FALL SHORT");
    std::fflush(stdout);
    return passes;
  } catch (const std::runtime_error& error) {
    std::fprintf(stderr, "measures: %s can't be taken: %s\n", measure.name.c_str(), error.what());
    return false;
  }
}

}  // namespace

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

int RunMeasures(const std::vector<Measure>& table, const std::vector<std::string>& arguments) {
  const auto named = [](const std::string& name) { return [&](const Measure& m) { return m.name == name; }; };
  std::vector<Measure> chosen = arguments.empty() ? table : std::vector<Measure>();
  for (const std::string& name : arguments) {
    if (name == "--list") {
      for (const Measure& measure : table) std::puts(measure.name.c_str());
      return 0;
    }
    const auto found = std::find_if(table.begin(), table.end(), named(name));
    if (found == table.end()) {
      std::fprintf(stderr, "measures: there is no measure %s; --list names them\n", name.c_str());
      return 2;
    }
    chosen.push_back(*found);
  }

  Workplace workplace;
  bool all_pass = true;
  for (const Measure& measure : chosen) all_pass = Take(measure, workplace) && all_pass;
  return all_pass ? 0 : 1;
}

}  // namespace qublet::measures

#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace qublet::measures {

class Workplace;

// Does a job once and gives the seconds that the job itself took, without what had to be laid out for it; or the
// bytes that it needs.
using Run = std::function<double()>;

// The same job done by the program and by the least work that this machine can do it with.
struct Contest {
  Run ours;
  Run floor;
};

enum class Unit { kSeconds, kBytes };

struct Measure {
  std::string name;
  double goal = 1;  // it passes while median of ours / median of floor is not above this
  std::function<Contest(Workplace&)> prepare;
  Unit unit = Unit::kSeconds;
};

template <typename Job>
double SecondsOf(Job&& job) {
  const auto start = std::chrono::steady_clock::now();
  job();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> values);

// Takes the measures of `table` that the arguments name, all when there are none, and prints a line for each. Gives
// the exit code: 0 all pass, 1 one falls short or can't be taken, 2 an unknown name.
int RunMeasures(const std::vector<Measure>& table, const std::vector<std::string>& arguments);

}  // namespace qublet::measures

#pragma once

#include <deque>

#include "platform/random.h"

namespace qublet {

// Draws what the test has queued, then `otherwise` for ever. Counts what is asked of it.
class ScriptedRandom : public Random {
 public:
  std::deque<double> draws;
  double otherwise = 0;

  int drawn = 0;
  int reseeded = 0;

  double Draw() override {
    ++drawn;
    if (draws.empty()) return otherwise;
    const double draw = draws.front();
    draws.pop_front();
    return draw;
  }
  void Reseed() override { ++reseeded; }
};

}  // namespace qublet

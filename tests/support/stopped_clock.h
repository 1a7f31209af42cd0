#pragma once

#include "platform/clock.h"

namespace qublet {

// It is always 9 March 2004, 07:05:01.
class StoppedClock : public Clock {
 public:
  LocalTime Now() const override { return {2004, 3, 9, 7, 5, 1}; }
};

}  // namespace qublet

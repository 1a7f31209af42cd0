#pragma once

namespace qublet {

// A moment in local time, fields as people write them (month and day from 1).
struct LocalTime {
  int year = 0;
  int month = 1;
  int day = 1;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

class Clock {
 public:
  virtual ~Clock() = default;
  virtual LocalTime Now() const = 0;
};

// The clock of this machine.
class SystemClock : public Clock {
 public:
  LocalTime Now() const override;
};

}  // namespace qublet

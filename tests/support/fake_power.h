#pragma once

#include <functional>

#include "platform/power.h"

namespace qublet {

// A machine that stays on, and counts how often it was to be switched off.
class FakePower : public Power {
 public:
  void EnableShutdownPrivilege() override {}
  void ForceShutdown() override {
    ++requests;
    if (asked) asked();
  }

  int requests = 0;
  std::function<void()> asked;
};

}  // namespace qublet

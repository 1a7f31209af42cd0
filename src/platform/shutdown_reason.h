#pragma once

#include <cstdint>
#include <string>

namespace qublet {

// For as long as one lives, the system tells the user, where it does that, why the session can't end yet: a window of
// this process, by its number in the window system, waits for something. Made and unmade on the window's thread.
class ShutdownReason {
 public:
  ShutdownReason(std::uintptr_t window, const std::string& text);
  ~ShutdownReason();
  ShutdownReason(const ShutdownReason&) = delete;
  ShutdownReason& operator=(const ShutdownReason&) = delete;

 private:
  [[maybe_unused]] const std::uintptr_t window_;  // some systems tell nothing
};

}  // namespace qublet

#pragma once

#include <functional>
#include <memory>

namespace qublet {

// What asks a process from outside to end: for as long as one lives, the process isn't ended by it. On Linux these
// are the signals TERM, HUP and INT, but for one that this process was started to ignore; Windows has the messages of
// windows instead. One at a time.
class EndRequests {
 public:
  // `asked` runs for each, on a thread of its own.
  explicit EndRequests(std::function<void()> asked);
  ~EndRequests();
  EndRequests(const EndRequests&) = delete;
  EndRequests& operator=(const EndRequests&) = delete;

 private:
  struct System;
  std::unique_ptr<System> system_;
};

}  // namespace qublet

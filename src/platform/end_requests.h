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

  struct System;

 private:
  std::unique_ptr<System> system_;
};

// For as long as one lives instead, those signals end the process as they always do, but the temporary files of
// replacements go with it. Without one where no thread can be had. Does nothing on Windows.
class TidyEnd {
 public:
  TidyEnd();
  ~TidyEnd();
  TidyEnd(const TidyEnd&) = delete;
  TidyEnd& operator=(const TidyEnd&) = delete;

 private:
  std::unique_ptr<EndRequests::System> system_;
};

// Ends the process without waiting for what other threads do; their replacements are as if never begun.
[[noreturn]] void EndAtOnce(int code);

}  // namespace qublet

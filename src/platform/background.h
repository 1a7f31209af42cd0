#pragma once

#include <functional>

namespace qublet {

// Work that takes long or waits for another program, done beside the windows, one piece after the other. Here it is
// done on the spot, for who has no windows.
class Background {
 public:
  // Throws nothing but std::bad_alloc, and touches nothing that windows show.
  using Work = std::function<void()>;

  virtual ~Background() = default;

  // Comes back when it is done; meanwhile the windows are painted and nothing else. Throws what the work throws.
  virtual void Do(const Work& work) { work(); }
  // Comes back at once; `done` follows on the caller's thread, also of work that ended for want of memory. False, and
  // nothing is done, while such work is under way.
  virtual bool Start(const Work& work, const Work& done) {
    work();
    done();
    return true;
  }
};

}  // namespace qublet

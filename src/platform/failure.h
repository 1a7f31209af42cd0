#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace qublet {

// What a platform call or a checked operation throws when it can't do its work. It never leaves a public routine of a
// room: the routine is wrapped in one of the two helpers below, which say which style of failure applies.
class Failure : public std::runtime_error {
 public:
  explicit Failure(const std::string& what) : std::runtime_error(what) {}
};

// An error ends the steps: runs `steps` and answers True, or False when anything was thrown on the way.
template <typename Steps>
bool Guarded(Steps&& steps) {
  try {
    std::forward<Steps>(steps)();
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

// This statement is given up and the next one runs: what was thrown is swallowed, the target keeps its value.
template <typename Statement>
void ResumeNext(Statement&& statement) {
  Guarded(std::forward<Statement>(statement));
}

}  // namespace qublet

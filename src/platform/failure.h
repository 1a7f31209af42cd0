#pragma once

#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace qublet {

// What a platform call or a checked operation throws when it can't do its work. It never leaves a public routine of a
// room: the routine is wrapped in one of the helpers below, which say which style of failure applies.
class Failure : public std::runtime_error {
 public:
  // `reason` is short and in lower case, fit to stand behind a path: "read-only". `detail` is for who looks closer:
  // the step, the file in this system's form.
  explicit Failure(const std::string& reason, const std::string& detail = "")
      : std::runtime_error(detail.empty() ? reason : reason + ": " + detail), reason_length_(reason.size()) {}

  std::string_view Reason() const { return std::string_view(what()).substr(0, reason_length_); }

 private:
  std::size_t reason_length_;
};

// A system's error as a reason: "no such file or folder", "permission denied", "no space left", ...
std::string ReasonOf(const std::error_code& error);

// How some work ended: done, or given up for a reason.
class Outcome {
 public:
  Outcome() = default;  // done
  static Outcome GivenUp(std::string_view reason) { return Outcome(std::string(reason)); }
  // Takes no memory itself.
  static Outcome WantOfMemory() {
    Outcome outcome;
    outcome.wants_memory_ = true;
    return outcome;
  }

  explicit operator bool() const { return !reason_ && !wants_memory_; }
  // See Failure; "" when done.
  std::string Reason() const { return wants_memory_ ? "not enough memory" : reason_.value_or(""); }
  // For steps that can't go on: throws Failure with the reason unless it is done.
  void OrThrow() const {
    MindMemory();
    if (reason_) throw Failure(*reason_);
  }
  // For steps that go on whatever failed but for want of memory, which would have them lose something: throws
  // std::bad_alloc then.
  void MindMemory() const {
    if (wants_memory_) throw std::bad_alloc();
  }

 private:
  explicit Outcome(std::string reason) : reason_(std::move(reason)) {}

  std::optional<std::string> reason_;
  bool wants_memory_ = false;
};

// An error ends the steps. What is taken for one is a Failure, an error of the system, and a want of memory; anything
// else that is thrown is a mistake of the program and goes on up, for tests to see.
template <typename Steps>
Outcome Attempt(Steps&& steps) {
  try {
    try {
      std::forward<Steps>(steps)();
      return {};
    } catch (const Failure& failure) {
      return Outcome::GivenUp(failure.Reason());
    } catch (const std::system_error& error) {
      return Outcome::GivenUp(ReasonOf(error.code()));
    } catch (const std::length_error&) {
      return Outcome::GivenUp("too large");
    }
  } catch (const std::bad_alloc&) {
    // Also where the reason of another failure found no room.
    return Outcome::WantOfMemory();
  }
}

// The same where nobody asks for the reason: True when the steps came to their end.
template <typename Steps>
bool Guarded(Steps&& steps) {
  return static_cast<bool>(Attempt(std::forward<Steps>(steps)));
}

// This statement is given up and the next one runs: what was thrown is swallowed, the target keeps its value.
template <typename Statement>
void ResumeNext(Statement&& statement) {
  Guarded(std::forward<Statement>(statement));
}

}  // namespace qublet

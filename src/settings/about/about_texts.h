#pragma once

#include <cstddef>
#include <string>
#include <utility>

#include "settings/application.h"

namespace qublet {

// What the window about the program says.

std::string AboutCaption(const ProgramVersion& version = {});
// "Version: 2.1.93"
std::string VersionLine(const ProgramVersion& version = {});

inline constexpr const char* kDescription =
    " If you require support, have feedback, or would like to suggest possible feature suggestions please visit the "
    "website.";

// With room in front, out of which they come; in ASCII.
std::string Credits();
std::string Dots();

// A line that wanders to the left, a character at each tick, and begins anew when none is left.
class ScrollingLine {
 public:
  explicit ScrollingLine(std::string whole) : whole_(std::move(whole)) {}

  std::string Shown() const { return whole_.substr(dropped_); }
  void Tick() { dropped_ = dropped_ + 1 < whole_.size() ? dropped_ + 1 : 0; }

 private:
  std::string whole_;
  std::size_t dropped_ = 0;
};

}  // namespace qublet

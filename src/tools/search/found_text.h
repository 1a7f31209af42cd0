#pragma once

#include <array>
#include <string>
#include <string_view>

namespace qublet {

// One text that is looked for in many; an empty one is in none. Case is ignored by Unicode's simple mapping to lower
// case, letter by letter. Letters that stand in for a name's own ":" and "\" count as what they are shown as.
class FoundText {
 public:
  FoundText(std::string_view text, bool case_sensitive);

  bool IsIn(std::string_view text) const;

 private:
  bool IsInAscii(std::string_view text) const;

  const bool case_sensitive_;
  const std::string needle_;                 // in lower case unless that counts
  std::array<std::size_t, 256> distance_{};  // how far on to look, by the letter below the needle's last
};

}  // namespace qublet

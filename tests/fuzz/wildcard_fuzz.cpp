#include "fuzz/fuzz_input.h"
#include "platform/code_page.h"
#include "playlist/paths/text.h"

using namespace qublet;

namespace {

using Letters = std::vector<std::string>;

Letters LettersOf(std::string_view text) {
  Letters letters;
  for (std::size_t at = 0; at < text.size(); at += letters.back().size())
    letters.emplace_back(text.substr(at, CharacterLength(text, at)));
  return letters;
}

// As anybody would explain it.
bool Fits(std::span<const std::string> name, std::span<const std::string> pattern) {
  if (pattern.empty()) return name.empty();
  if (pattern[0] == "*") return Fits(name, pattern.subspan(1)) || (!name.empty() && Fits(name.subspan(1), pattern));
  return !name.empty() && (pattern[0] == "?" || pattern[0] == name[0]) && Fits(name.subspan(1), pattern.subspan(1));
}

}  // namespace

// A name and a pattern, parted by the first zero. Short ones, since explaining takes its time.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = TextOf(data, size);
  const std::string_view name = text.substr(0, text.find('\0'));
  const std::string_view pattern = text.substr(std::min(name.size() + 1, size));
  if (!IsValidUtf8(text) || name.size() > 16 || pattern.size() > 12) return 0;
  const Letters name_letters = LettersOf(FoldCase(name));
  const Letters pattern_letters = LettersOf(FoldCase(pattern));
  Require(MatchesWildcard(name, pattern) == (pattern == "*.*" || Fits(name_letters, pattern_letters)));
  return 0;
}

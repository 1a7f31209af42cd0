#include "tools/search/found_text.h"

#include <algorithm>

#include "playlist/paths/text.h"

namespace qublet {
namespace {

constexpr std::string_view kColonOfAName = "\uF03A";  // see platform/linux/native_text.h
constexpr std::string_view kBackslashOfAName = "\uF05C";

bool IsAscii(std::string_view text) {
  unsigned char all = 0;
  for (const char letter : text) all |= static_cast<unsigned char>(letter);
  return all < 0x80;
}

std::string Shown(std::string_view text) {
  return ReplaceAll(ReplaceAll(text, kColonOfAName, ":"), kBackslashOfAName, "\\");
}

std::string NeedleOf(std::string_view text, bool case_sensitive) {
  return case_sensitive ? Shown(text) : LowerCase(Shown(text));
}

constexpr char LowerAscii(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

constexpr char UpperAscii(char letter) {
  return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

}  // namespace

FoundText::FoundText(std::string_view text, bool case_sensitive)
    : case_sensitive_(case_sensitive), needle_(NeedleOf(text, case_sensitive)) {
  distance_.fill(needle_.size());
  for (std::size_t at = 0; at + 1 < needle_.size(); ++at) {
    const char letter = needle_[at];
    for (const char either : {letter, case_sensitive ? letter : UpperAscii(letter)})
      distance_[static_cast<unsigned char>(either)] = needle_.size() - 1 - at;
  }
}

bool FoundText::IsIn(std::string_view text) const {
  if (needle_.empty()) return false;
  if (IsAscii(text)) return IsInAscii(text);
  // Also letters beyond ASCII can have a lower case within.
  return Contains(case_sensitive_ ? Shown(text) : LowerCase(Shown(text)), needle_);
}

// By Horspool: where the needle doesn't end at a letter, that letter tells how far on the next place is.
bool FoundText::IsInAscii(std::string_view text) const {
  const std::size_t last = needle_.size() - 1;
  const auto same = [this](char letter, char wanted) {
    return (case_sensitive_ ? letter : LowerAscii(letter)) == wanted;
  };
  for (std::size_t end = last; end < text.size(); end += distance_[static_cast<unsigned char>(text[end])]) {
    const std::string_view place = text.substr(end - last, needle_.size());
    if (same(place[last], needle_[last]) && std::equal(place.begin(), place.end(), needle_.begin(), same))
      return true;
  }
  return false;
}

}  // namespace qublet

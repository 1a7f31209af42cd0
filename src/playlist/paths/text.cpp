#include "playlist/paths/text.h"

#include <utf8proc.h>

#include "platform/characters.h"

namespace qublet {
namespace {

utf8proc_int32_t UpperOf(utf8proc_int32_t code) {
  constexpr utf8proc_int32_t kSharpS = 0xDF;  // the library gives the capital U+1E9E, no simple mapping of Unicode's
  if (code < 0x80) return code >= 'a' && code <= 'z' ? code - 32 : code;
  return code == kSharpS ? code : utf8proc_toupper(code);
}

bool IsApostrophe(utf8proc_int32_t code) {
  return code == '\'' || code == 0x2019;
}

enum class WordRole { kSeparates, kPasses, kBelongs };

WordRole RoleInWord(utf8proc_int32_t code) {
  if (IsApostrophe(code)) return WordRole::kBelongs;
  if (code >= '\t' && code <= '\r') return WordRole::kSeparates;
  const auto category = utf8proc_category(code);
  if (category >= UTF8PROC_CATEGORY_PC && category <= UTF8PROC_CATEGORY_PO) return WordRole::kSeparates;
  if (category >= UTF8PROC_CATEGORY_ZS && category <= UTF8PROC_CATEGORY_ZP) return WordRole::kSeparates;
  if (category >= UTF8PROC_CATEGORY_SM && category <= UTF8PROC_CATEGORY_SO) return WordRole::kPasses;
  return WordRole::kBelongs;
}

}  // namespace

std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
  std::string result;
  std::size_t copied = 0;
  if (!from.empty()) {
    for (std::size_t at = text.find(from); at != text.npos; at = text.find(from, copied)) {
      result.append(text, copied, at - copied).append(to);
      copied = at + from.size();
    }
  }
  return result.append(text, copied);
}

bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != text.npos;
}

std::vector<std::string> Split(std::string_view text, char separator) {
  std::vector<std::string> pieces;
  std::size_t start = 0;
  for (std::size_t at = text.find(separator); at != text.npos; at = text.find(separator, start)) {
    pieces.emplace_back(text.substr(start, at - start));
    start = at + 1;
  }
  pieces.emplace_back(text.substr(start));
  return pieces;
}

std::string Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == text.npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::string LowerCase(std::string_view text) {
  return Changed(text, LowerOf);
}

std::string UpperCase(std::string_view text) {
  return Changed(text, UpperOf);
}

std::string ProperCase(std::string_view text) {
  bool word_begins = true;
  return Changed(text, [&](utf8proc_int32_t code) {
    const WordRole role = RoleInWord(code);
    const auto result = word_begins && role == WordRole::kBelongs ? UpperOf(code) : LowerOf(code);
    if (role != WordRole::kPasses) word_begins = role == WordRole::kSeparates;
    return result;
  });
}

std::size_t CharacterLength(std::string_view text, std::size_t at) {
  return CharacterAt(text, at).length;
}

std::string CharacterText(char32_t code) {
  std::string text;
  const auto value = static_cast<utf8proc_int32_t>(code);
  if (utf8proc_codepoint_valid(value)) AppendCharacter(text, value);
  return text;
}

std::size_t CharacterCount(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); at += CharacterLength(text, at)) ++count;
  return count;
}

std::string FirstCharacters(std::string_view text, std::size_t count) {
  std::size_t at = 0;
  while (count > 0 && at < text.size()) {
    at += CharacterLength(text, at);
    --count;
  }
  return std::string(text.substr(0, at));
}

bool MatchesWildcard(std::string_view name, std::string_view pattern) {
  return MatchesFoldedWildcard(FoldCase(name), FoldCase(pattern));
}

bool MatchesFoldedWildcard(std::string_view name, std::string_view pattern) {
  if (pattern == "*.*") return true;
  std::size_t at = 0;
  std::size_t want = 0;
  std::size_t star = pattern.npos;  // the last "*" passed, and where in the name it stops for now
  std::size_t star_end = 0;
  while (at < name.size()) {
    if (want < pattern.size() && pattern[want] == '*') {
      star = want++;
      star_end = at;
    } else if (want < pattern.size() && pattern[want] == '?') {
      at += CharacterLength(name, at);
      ++want;
    } else if (want < pattern.size() && pattern[want] == name[at]) {
      ++at;
      ++want;
    } else if (star != pattern.npos) {
      star_end += CharacterLength(name, star_end);
      at = star_end;
      want = star + 1;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', want) == pattern.npos;
}

}  // namespace qublet

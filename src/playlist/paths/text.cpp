#include "playlist/paths/text.h"

#include <utf8proc.h>

#include <cstdlib>
#include <memory>

#include "platform/code_page.h"

namespace qublet {
namespace {

struct Character {
  utf8proc_int32_t code = -1;  // -1 for a byte that belongs to no well-formed character
  std::size_t length = 1;      // in bytes
};

Character CharacterAt(std::string_view text, std::size_t at) {
  const auto first = static_cast<unsigned char>(text[at]);
  if (first < 0x80) return {first, 1};
  Character character;
  const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data()) + at;
  const auto length = utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size() - at), &character.code);
  if (length <= 0) return {};
  character.length = static_cast<std::size_t>(length);
  return character;
}

void Append(std::string& text, utf8proc_int32_t code) {
  if (code < 0x80) {
    text += static_cast<char>(code);
    return;
  }
  utf8proc_uint8_t bytes[4];
  const auto length = utf8proc_encode_char(code, bytes);
  text.append(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(length));
}

// Every character of `text` through `change`; bytes that aren't UTF-8 stay as they are.
template <typename Change>
std::string Changed(std::string_view text, Change&& change) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const Character character = CharacterAt(text, at);
    if (character.code < 0)
      result += text[at];
    else
      Append(result, change(character.code));
    at += character.length;
  }
  return result;
}

utf8proc_int32_t LowerOf(utf8proc_int32_t code) {
  if (code < 0x80) return code >= 'A' && code <= 'Z' ? code + 32 : code;
  return utf8proc_tolower(code);
}

utf8proc_int32_t UpperOf(utf8proc_int32_t code) {
  constexpr utf8proc_int32_t kSharpS = 0xDF;  // the library gives the capital U+1E9E, no simple mapping of Unicode's
  if (code < 0x80) return code >= 'a' && code <= 'z' ? code - 32 : code;
  return code == kSharpS ? code : utf8proc_toupper(code);
}

// Folding of one character to one: where the full folding has more than one, the lower case stands for it, so that
// "?" in a pattern goes on to stand for a character of the name.
utf8proc_int32_t FoldOf(utf8proc_int32_t code) {
  if (code < 0x80) return LowerOf(code);
  utf8proc_int32_t folded[4];
  int boundary = 0;
  const auto count = utf8proc_decompose_char(code, folded, 4, UTF8PROC_CASEFOLD, &boundary);
  return count == 1 ? folded[0] : LowerOf(code);
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

std::string FoldCase(std::string_view text) {
  if (!IsAscii(text)) return Changed(text, FoldOf);
  std::string folded(text);
  for (char& c : folded) c = static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
  return folded;
}

std::string SimilarityKey(std::string_view text) {
  return Decomposed(FoldCase(text));
}

std::string Decomposed(std::string_view text) {
  if (IsAscii(text)) return std::string(text);
  utf8proc_uint8_t* decomposed = nullptr;
  const auto length =
      utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(text.data()), static_cast<utf8proc_ssize_t>(text.size()),
                   &decomposed, static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_DECOMPOSE));
  if (length < 0) return std::string(text);
  const std::unique_ptr<utf8proc_uint8_t, void (*)(void*)> owned(decomposed, std::free);
  return {reinterpret_cast<const char*>(decomposed), static_cast<std::size_t>(length)};
}

std::size_t CharacterLength(std::string_view text, std::size_t at) {
  return CharacterAt(text, at).length;
}

std::string CharacterText(char32_t code) {
  std::string text;
  const auto value = static_cast<utf8proc_int32_t>(code);
  if (utf8proc_codepoint_valid(value)) Append(text, value);
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

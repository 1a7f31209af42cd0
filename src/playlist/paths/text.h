#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/folded_text.h"  // IWYU pragma: export

namespace qublet {

// Work on texts. Texts are UTF-8; whatever counts, cuts or changes characters goes by code points, and a byte that
// isn't UTF-8 is a character of its own that stays as it is. Comparing and substituting is binary and case-sensitive.

// Every occurrence of `from` becomes `to`, left to right, not overlapping. An empty `from` changes nothing.
std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to);
bool Contains(std::string_view text, std::string_view part);

// Pieces between the separators; always one more than there are separators.
std::vector<std::string> Split(std::string_view text, char separator);

// Without the blanks (character 32 only) at both ends.
std::string Trim(std::string_view text);

// Case by Unicode's simple mapping, code point by code point.
std::string LowerCase(std::string_view text);
std::string UpperCase(std::string_view text);
// First letter of each word upper case, the others lower. A word starts after white space or punctuation, but not
// after an apostrophe; a symbol neither starts a word nor is its first letter.
std::string ProperCase(std::string_view text);

// Length in bytes of the character that begins at `text[at]`.
std::size_t CharacterLength(std::string_view text, std::size_t at);
// A code point as text; "" for what is none.
std::string CharacterText(char32_t code);
// Count of characters, and the first `count` characters.
std::size_t CharacterCount(std::string_view text);
std::string FirstCharacters(std::string_view text, std::size_t count);

// Whether a file name fits a pattern of "*" and "?", ignoring case. "*.*" fits every name.
bool MatchesWildcard(std::string_view name, std::string_view pattern);
// The same for a name and a pattern that have been through FoldCase already.
bool MatchesFoldedWildcard(std::string_view name, std::string_view pattern);

}  // namespace qublet

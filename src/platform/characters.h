#pragma once

#include <utf8proc.h>

#include <string>
#include <string_view>

namespace qublet {

// Texts by code points, for who changes them one by one.

struct Character {
  utf8proc_int32_t code = -1;  // -1 for a byte that belongs to no well-formed character
  std::size_t length = 1;      // in bytes
};

inline Character CharacterAt(std::string_view text, std::size_t at) {
  const auto first = static_cast<unsigned char>(text[at]);
  if (first < 0x80) return {first, 1};
  Character character;
  const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data()) + at;
  const auto length = utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size() - at), &character.code);
  if (length <= 0) return {};
  character.length = static_cast<std::size_t>(length);
  return character;
}

inline void AppendCharacter(std::string& text, utf8proc_int32_t code) {
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
      AppendCharacter(result, change(character.code));
    at += character.length;
  }
  return result;
}

// Unicode's simple lower case.
inline utf8proc_int32_t LowerOf(utf8proc_int32_t code) {
  if (code < 0x80) return code >= 'A' && code <= 'Z' ? code + 32 : code;
  return utf8proc_tolower(code);
}

}  // namespace qublet

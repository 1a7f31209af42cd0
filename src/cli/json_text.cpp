#include "cli/json_text.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "platform/characters.h"
#include "platform/shown_character.h"

namespace qublet {
namespace {

// One unit of UTF-16.
std::string Escape(utf8proc_int32_t unit) {
  std::array<char, 8> escape{};
  std::snprintf(escape.data(), escape.size(), "\\u%04x", static_cast<unsigned>(unit) & 0xFFFF);
  return escape.data();
}

void AppendJson(std::string& json, utf8proc_int32_t code) {
  if (code == '"' || code == '\\') {
    json += '\\';
    json += static_cast<char>(code);
  } else if (!IsControlCharacter(code) && !IsInvisibleCharacter(code) && !IsPrivateUseCharacter(code)) {
    AppendCharacter(json, code);
  } else if (code < 0x10000) {
    json += Escape(code);
  } else {
    json += Escape(0xD7C0 + (code >> 10)) + Escape(0xDC00 + (code & 0x3FF));
  }
}

}  // namespace

std::string JsonText(std::string_view text) {
  std::string json = "\"";
  for (std::size_t at = 0; at < text.size();) {
    const Character character = CharacterAt(text, at);
    if (character.code < 0)
      json += text[at];
    else
      AppendJson(json, character.code);
    at += character.length;
  }
  return json + "\"";
}

std::string JsonRecord(const Record& record) {
  std::string json = "{";
  for (const auto& [name, value, is_text] : record) {
    if (json.size() > 1) json += ", ";
    json += JsonText(name) + ": " + (is_text ? JsonText(value) : value);
  }
  return json + "}";
}

std::string PlainValue(std::string text) {
  std::ranges::replace_if(
      text, [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
  return text;
}

}  // namespace qublet

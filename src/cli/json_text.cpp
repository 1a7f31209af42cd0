#include "cli/json_text.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace qublet {

std::string JsonText(std::string_view text) {
  std::string json = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      json += '\\';
      json += c;
    } else if (static_cast<unsigned char>(c) < 0x20) {
      std::array<char, 8> escape{};
      std::snprintf(escape.data(), escape.size(), "\\u%04x", static_cast<unsigned>(static_cast<unsigned char>(c)));
      json += escape.data();
    } else {
      json += c;
    }
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

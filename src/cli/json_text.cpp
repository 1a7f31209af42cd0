#include "cli/json_text.h"

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

}  // namespace qublet

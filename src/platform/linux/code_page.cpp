#include "platform/code_page.h"

#include <utf8proc.h>

#include <array>
#include <cstdint>

namespace qublet {
namespace {

// Characters of the bytes 0x80 to 0x9F; all others stand for the character of the same number.
constexpr std::array<std::uint16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

std::optional<char> ByteOf(std::int32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) return static_cast<char>(character);
  for (std::size_t i = 0; i < kUpperControls.size(); ++i) {
    if (kUpperControls[i] == character) return static_cast<char>(0x80 + i);
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::string> ToCodePage(std::string_view utf8) {
  std::string bytes;
  bytes.reserve(utf8.size());
  while (!utf8.empty()) {
    if (static_cast<unsigned char>(utf8.front()) < 0x80) {
      bytes += utf8.front();
      utf8.remove_prefix(1);
      continue;
    }
    std::int32_t character = -1;
    const auto* next = reinterpret_cast<const utf8proc_uint8_t*>(utf8.data());
    const auto length = utf8proc_iterate(next, static_cast<utf8proc_ssize_t>(utf8.size()), &character);
    const auto byte = length > 0 ? ByteOf(character) : std::nullopt;
    if (!byte) return std::nullopt;
    bytes += *byte;
    utf8.remove_prefix(static_cast<std::size_t>(length));
  }
  return bytes;
}

std::string FromCodePage(std::string_view bytes) {
  std::string utf8;
  utf8.reserve(bytes.size() + bytes.size() / 8);
  for (const char byte : bytes) {
    const auto number = static_cast<unsigned char>(byte);
    const unsigned character = number >= 0x80 && number < 0xA0 ? kUpperControls[number - 0x80u] : number;
    if (character < 0x80) {
      utf8 += byte;
    } else if (character < 0x800) {
      utf8 += static_cast<char>(0xC0 | (character >> 6));
      utf8 += static_cast<char>(0x80 | (character & 0x3F));
    } else {
      utf8 += static_cast<char>(0xE0 | (character >> 12));
      utf8 += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
      utf8 += static_cast<char>(0x80 | (character & 0x3F));
    }
  }
  return utf8;
}

}  // namespace qublet

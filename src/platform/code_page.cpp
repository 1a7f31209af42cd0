#include "platform/code_page.h"

#include <utf8proc.h>

#include <cstdint>

namespace qublet {
namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";

}  // namespace

// Looks at all characters whatever they are, because the compiler makes that many times as fast as to stop at one.
bool IsAscii(std::string_view text) {
  char bits = 0;
  for (const char character : text) bits = static_cast<char>(bits | character);
  return (bits & 0x80) == 0;
}

bool IsValidUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    if (static_cast<unsigned char>(bytes.front()) < 0x80) {
      bytes.remove_prefix(1);
      continue;
    }
    std::int32_t character = -1;
    const auto* next = reinterpret_cast<const utf8proc_uint8_t*>(bytes.data());
    const auto length = utf8proc_iterate(next, static_cast<utf8proc_ssize_t>(bytes.size()), &character);
    if (length <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(length));
  }
  return true;
}

std::string_view WithoutMark(std::string_view bytes) {
  return bytes.substr(bytes.starts_with(kMark) ? kMark.size() : 0);
}

std::string DecodeText(std::string_view bytes) {
  const std::string_view text = WithoutMark(bytes);
  return IsValidUtf8(text) ? std::string(text) : FromCodePage(text);
}

std::string EncodeText(std::string utf8) {
  if (IsAscii(utf8)) return utf8;
  const auto bytes = ToCodePage(utf8);
  if (bytes && DecodeText(*bytes) == utf8) return *bytes;
  // A text that begins with the mark's own character would lose it in reading.
  return utf8.starts_with(kMark) ? std::string(kMark).append(utf8) : utf8;
}

}  // namespace qublet

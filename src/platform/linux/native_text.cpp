#include "platform/linux/native_text.h"

#include <utf8proc.h>

#include <algorithm>
#include <cstdint>

#include "platform/failure.h"

namespace qublet {
namespace {

constexpr std::int32_t kControls = 0xF000;
constexpr std::int32_t kColon = 0xF03A;
constexpr std::int32_t kBackslash = 0xF05C;
constexpr std::int32_t kBytes = 0xF700;

bool StandsForAnother(std::int32_t letter) {
  return (letter > kControls && letter <= kControls + 0x1F) || letter == kColon || letter == kBackslash ||
         (letter >= kBytes + 0x80 && letter <= kBytes + 0xFF);
}

// The letters concerned all take three bytes.
void AppendLetter(std::string& text, std::int32_t letter) {
  text += static_cast<char>(0xE0 | (letter >> 12));
  text += static_cast<char>(0x80 | ((letter >> 6) & 0x3F));
  text += static_cast<char>(0x80 | (letter & 0x3F));
}

struct Letter {
  std::int32_t code = -1;  // -1 for a byte that is no UTF-8
  std::size_t length = 1;
};

Letter LetterAt(std::string_view text, std::size_t place) {
  Letter letter;
  const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data()) + place;
  const utf8proc_ssize_t length =
      utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size() - place), &letter.code);
  if (length > 0) {
    letter.length = static_cast<std::size_t>(length);
  } else {
    letter.code = -1;
  }
  return letter;
}

void AppendAscii(std::string& text, char character) {
  if (character == '/') {
    text += '\\';
  } else if (character == '\\') {
    AppendLetter(text, kBackslash);
  } else if (character == ':') {
    AppendLetter(text, kColon);
  } else if (character > 0 && character < 0x20) {
    AppendLetter(text, kControls + character);
  } else {
    text += character;
  }
}

// Whether a byte isn't simply the same in a text; few names hold one.
bool IsOther(char c) {
  return static_cast<signed char>(c) < 0x20 || c == '/' || c == '\\' || c == ':';
}

}  // namespace

std::string TextFromNative(std::string_view native) {
  if (std::none_of(native.begin(), native.end(), IsOther)) return std::string(native);
  std::string text;
  text.reserve(native.size() + 16);
  for (std::size_t i = 0; i < native.size();) {
    if (static_cast<unsigned char>(native[i]) < 0x80) {
      AppendAscii(text, native[i++]);
      continue;
    }
    const Letter letter = LetterAt(native, i);
    const std::string_view bytes = native.substr(i, letter.length);
    if (letter.code >= 0 && !StandsForAnother(letter.code)) {
      text += bytes;
    } else {
      for (const char byte : bytes) AppendLetter(text, kBytes + static_cast<unsigned char>(byte));
    }
    i += letter.length;
  }
  return text;
}

std::string NativeFromText(std::string_view text) {
  if (text.find('\0') != std::string_view::npos) throw Failure("a path holds a zero character");
  std::string native;
  // Whatever stands for another begins with this byte, and few paths hold one.
  if (text.find('\xEF') == text.npos) {
    native = text;
    std::replace(native.begin(), native.end(), '\\', '/');
    return native;
  }
  native.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    if (text[i] != '\xEF') {
      native += text[i] == '\\' ? '/' : text[i];
      ++i;
      continue;
    }
    const Letter letter = LetterAt(text, i);
    if (letter.code >= 0 && StandsForAnother(letter.code)) {
      native += static_cast<char>(letter.code & 0xFF);
    } else {
      native += text.substr(i, letter.length);
    }
    i += letter.length;
  }
  return native;
}

}  // namespace qublet

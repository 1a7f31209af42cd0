#include "media/id3/text_encoding.h"

#include <algorithm>

#include "playlist/paths/text.h"

namespace qublet {
namespace {

constexpr char32_t kBroken = 0xFFFD;

void AppendUtf8(std::string& out, char32_t character) {
  const auto add = [&](char32_t bits) { out.push_back(static_cast<char>(bits)); };
  if (character < 0x80) {
    add(character);
  } else if (character < 0x800) {
    add(0xC0 | character >> 6);
    add(0x80 | (character & 0x3F));
  } else if (character < 0x10000) {
    add(0xE0 | character >> 12);
    add(0x80 | (character >> 6 & 0x3F));
    add(0x80 | (character & 0x3F));
  } else {
    add(0xF0 | character >> 18);
    add(0x80 | (character >> 12 & 0x3F));
    add(0x80 | (character >> 6 & 0x3F));
    add(0x80 | (character & 0x3F));
  }
}

// The code points of a text up to its first zero character.
template <typename Visit>
void ForEachCharacter(std::string_view text, Visit&& visit) {
  for (std::size_t at = 0; at < text.size() && text[at] != '\0';) {
    const std::size_t length = CharacterLength(text, at);
    const auto first = static_cast<unsigned char>(text[at]);
    char32_t character = first;
    if (length > 1) {
      character = first & (0x7Fu >> length);
      for (std::size_t i = 1; i < length; ++i) {
        character = character << 6 | (static_cast<unsigned char>(text[at + i]) & 0x3F);
      }
    }
    visit(character);
    at += length;
  }
}

void AppendUtf16(Bytes& out, char32_t character, bool big_endian) {
  const auto add = [&](char32_t unit) {
    const auto high = static_cast<std::uint8_t>(unit >> 8);
    const auto low = static_cast<std::uint8_t>(unit);
    out.push_back(big_endian ? high : low);
    out.push_back(big_endian ? low : high);
  };
  if (character < 0x10000) {
    add(character);
  } else {
    add(0xD800 + ((character - 0x10000) >> 10));
    add(0xDC00 + ((character - 0x10000) & 0x3FF));
  }
}

// Where the first terminator stands, or the size when there is none.
std::size_t FindTerminator(BytesView bytes, std::size_t width) {
  for (std::size_t at = 0; at + width <= bytes.size(); at += width) {
    if (bytes[at] == 0 && bytes[at + width - 1] == 0) return at;
  }
  return bytes.size();
}

std::size_t TerminatorWidth(TextEncoding encoding) {
  return encoding == TextEncoding::kUtf16 || encoding == TextEncoding::kUtf16BigEndian ? 2 : 1;
}

}  // namespace

bool FitsLatin1(std::string_view text) {
  bool fits = true;
  ForEachCharacter(text, [&](char32_t character) { fits = fits && character < 0x100; });
  return fits;
}

Bytes EncodeString(std::string_view text, TextEncoding encoding) {
  Bytes out;
  if (encoding == TextEncoding::kUtf16) out = {0xFF, 0xFE};
  const bool latin1 = encoding == TextEncoding::kLatin1 && FitsLatin1(text);
  std::string utf8;
  ForEachCharacter(text, [&](char32_t character) {
    if (latin1) {
      out.push_back(static_cast<std::uint8_t>(character));
    } else if (TerminatorWidth(encoding) == 2) {
      AppendUtf16(out, character, encoding == TextEncoding::kUtf16BigEndian);
    } else {
      AppendUtf8(utf8, character);
    }
  });
  Append(out, utf8);
  return out;
}

void AppendTerminator(Bytes& out, TextEncoding encoding) {
  out.insert(out.end(), TerminatorWidth(encoding), 0);
}

std::string FromLatin1(BytesView bytes) {
  std::string text;
  for (const std::uint8_t byte : bytes) AppendUtf8(text, byte);
  return text;
}

std::string StringReader::Next() {
  const std::size_t width = TerminatorWidth(encoding_);
  const std::size_t end = FindTerminator(rest_, width);
  const BytesView string = rest_.first(end);
  terminated_ = end + width <= rest_.size();
  rest_ = rest_.subspan(std::min(end + width, rest_.size()));
  if (width == 2) return DecodeUtf16(string);
  if (encoding_ == TextEncoding::kLatin1) return FromLatin1(string);

  std::string text;
  ForEachCharacter(AsText(string), [&](char32_t character) { AppendUtf8(text, character); });
  return text;
}

std::string StringReader::DecodeUtf16(BytesView string) {
  bool big_endian = encoding_ == TextEncoding::kUtf16BigEndian || big_endian_;
  if (string.size() >= 2 && ((string[0] == 0xFE && string[1] == 0xFF) || (string[0] == 0xFF && string[1] == 0xFE))) {
    big_endian = string[0] == 0xFE;
    big_endian_ = big_endian;
    string = string.subspan(2);
  }
  std::string text;
  char32_t high = 0;  // first half of a pair, waiting for the second
  for (std::size_t at = 0; at + 2 <= string.size(); at += 2) {
    const char32_t unit = big_endian ? string[at] << 8 | string[at + 1] : string[at + 1] << 8 | string[at];
    const bool second_half = unit >= 0xDC00 && unit < 0xE000;
    if (high != 0 && second_half) {
      AppendUtf8(text, 0x10000 + ((high - 0xD800) << 10) + (unit - 0xDC00));
      high = 0;
      continue;
    }
    if (high != 0) AppendUtf8(text, kBroken);
    high = unit >= 0xD800 && unit < 0xDC00 ? unit : 0;
    if (high == 0) AppendUtf8(text, second_half ? kBroken : unit);
  }
  if (high != 0) AppendUtf8(text, kBroken);
  return text;
}

}  // namespace qublet

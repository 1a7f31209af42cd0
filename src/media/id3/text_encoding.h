#pragma once

#include <string>
#include <string_view>

#include "media/id3/bytes.h"

namespace qublet {

// The encodings of texts in frames, by the number that stands in the frame. Texts in memory are UTF-8; where one
// holds a byte that isn't UTF-8, it counts as the Latin-1 character of that number, so that nothing is lost.
enum class TextEncoding : std::uint8_t { kLatin1 = 0, kUtf16 = 1, kUtf16BigEndian = 2, kUtf8 = 3 };

inline bool IsTextEncoding(std::uint8_t number) {
  return number <= 3;
}

bool FitsLatin1(std::string_view text);

// Text as bytes, without a terminator; kUtf16 is little-endian behind a byte-order mark. A text ends at its first
// zero character. What doesn't fit Latin-1 becomes UTF-8.
Bytes EncodeString(std::string_view text, TextEncoding encoding);
void AppendTerminator(Bytes& out, TextEncoding encoding);

// Latin-1 bytes as text.
std::string FromLatin1(BytesView bytes);

// Takes the strings of a frame one after the other. Broken characters are read as U+FFFD.
class StringReader {
 public:
  StringReader(BytesView content, TextEncoding encoding) : rest_(content), encoding_(encoding) {}

  bool AtEnd() const { return rest_.empty(); }
  // Up to a terminator, which is skipped, or to the end.
  std::string Next();
  // What hasn't been taken yet.
  BytesView Rest() const { return rest_; }
  // Whether the string taken last had a terminator.
  bool WasTerminated() const { return terminated_; }

 private:
  std::string DecodeUtf16(BytesView string);

  BytesView rest_;
  TextEncoding encoding_;
  bool terminated_ = false;
  bool big_endian_ = false;  // a UTF-16 string without a mark goes by the mark before it
};

}  // namespace qublet

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qublet {

// Bytes and numbers in a text of bytes. Who reads has made sure that they are there.
inline std::uint8_t ByteAt(std::string_view bytes, std::size_t place) {
  return static_cast<std::uint8_t>(bytes[place]);
}

// The lowest byte first, as in icons and bitmaps.
inline std::uint32_t LittleEndianAt(std::string_view bytes, std::size_t place, int count) {
  std::uint32_t number = 0;
  for (int i = count; i-- > 0;) number = number << 8 | ByteAt(bytes, place + i);
  return number;
}

// The highest byte first, as in PNG files.
inline std::uint32_t BigEndianAt(std::string_view bytes, std::size_t place, int count) {
  std::uint32_t number = 0;
  for (int i = 0; i < count; ++i) number = number << 8 | ByteAt(bytes, place + i);
  return number;
}

inline void AppendLittleEndian(std::string& out, std::uint32_t number, int count) {
  for (int i = 0; i < count; ++i) out += static_cast<char>(number >> (8 * i) & 0xFF);
}

inline void AppendBigEndian(std::string& out, std::uint32_t number, int count) {
  for (int i = count; i-- > 0;) out += static_cast<char>(number >> (8 * i) & 0xFF);
}

}  // namespace qublet

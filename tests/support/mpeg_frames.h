#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "support/memory_file.h"

namespace qublet {

// MPEG 1 layer III, 128 kbit/s, 44100 Hz, joint stereo, original: a frame of 417 bytes, 1152 samples.
inline const Bytes kHead128{0xFF, 0xFB, 0x90, 0x64};
constexpr std::size_t kLength128 = 417;

// A frame: its header, then zeros.
inline Bytes Frame(const Bytes& head = kHead128, std::size_t length = kLength128) {
  Bytes frame = head;
  frame.resize(length);
  return frame;
}

inline Bytes Frames(std::size_t count, const Bytes& head = kHead128, std::size_t length = kLength128) {
  Bytes all;
  for (std::size_t i = 0; i < count; ++i) {
    const Bytes frame = Frame(head, length);
    all.insert(all.end(), frame.begin(), frame.end());
  }
  return all;
}

inline Bytes BigEndian(std::uint32_t value) {
  return {static_cast<std::uint8_t>(value >> 24), static_cast<std::uint8_t>(value >> 16),
          static_cast<std::uint8_t>(value >> 8), static_cast<std::uint8_t>(value)};
}

inline Bytes SyncSafe(std::uint32_t value) {
  return {static_cast<std::uint8_t>(value >> 21 & 127), static_cast<std::uint8_t>(value >> 14 & 127),
          static_cast<std::uint8_t>(value >> 7 & 127), static_cast<std::uint8_t>(value & 127)};
}

// `bytes` with `piece` written over them from `offset` on.
inline Bytes Overwritten(Bytes bytes, std::size_t offset, const Bytes& piece) {
  bytes.resize(std::max(bytes.size(), offset + piece.size()));
  std::copy(piece.begin(), piece.end(), bytes.begin() + static_cast<std::ptrdiff_t>(offset));
  return bytes;
}

// 1000 frames of 1152 samples by the count in the first frame, of which ten are there. `length` is that of all of
// them by the same count: 102 kbit/s unless told otherwise.
inline Bytes VaryingRate(std::uint32_t length = 333'000) {
  const Bytes count = Joined({BytesOf("Xing"), BigEndian(3), BigEndian(1000), BigEndian(length)});
  return Joined({Overwritten(Frame(), 36, count), Frames(9)});
}

// A tag of this version with `length` bytes of body, zeros unless told otherwise.
inline Bytes Id3v2TagOf(std::uint32_t length, std::uint8_t version = 3, std::uint8_t filler = 0) {
  return Joined({BytesOf("ID3"), {version, 0, 0}, SyncSafe(length), Bytes(length, filler)});
}

inline Bytes Id3v1TagOf() {
  return Overwritten(Bytes(128), 0, BytesOf("TAG"));
}

// An APE tag with `length` bytes of items.
inline Bytes ApeTag(std::uint32_t length, bool with_header) {
  const std::uint32_t size = length + 32;
  Bytes mark = BytesOf("APETAGEX");
  mark.resize(32);
  for (std::size_t i = 0; i < 4; ++i) mark[12 + i] = static_cast<std::uint8_t>(size >> (8 * i));
  if (!with_header) return Joined({Bytes(length), mark});
  mark[23] = 0x80;
  return Joined({mark, Bytes(length), mark});
}

// A Lyrics3 tag, version 2, with `length` bytes of fields.
inline Bytes LyricsTag(std::size_t length) {
  std::string size = std::to_string(length + 11);
  size.insert(0, 6 - size.size(), '0');
  return Joined({BytesOf("LYRICSBEGIN"), Bytes(length, 'x'), BytesOf(size + "LYRICS200")});
}

}  // namespace qublet

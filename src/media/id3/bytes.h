#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace qublet {

using Bytes = std::vector<std::uint8_t>;
using BytesView = std::span<const std::uint8_t>;

// Numbers in tags stand with their highest byte first; a sync-safe one uses seven bits of each byte.
inline constexpr std::uint32_t kMaxSyncSafe = (1u << 28) - 1;

inline std::uint32_t ReadNumber(BytesView bytes, unsigned bits_per_byte = 8) {
  std::uint32_t value = 0;
  for (const std::uint8_t byte : bytes) value = value << bits_per_byte | byte;
  return value;
}

inline bool IsSyncSafe(BytesView bytes) {
  for (const std::uint8_t byte : bytes) {
    if (byte >= 0x80) return false;
  }
  return true;
}

void AppendNumber(Bytes& out, std::uint32_t value, unsigned count, unsigned bits_per_byte = 8);
void Append(Bytes& out, BytesView bytes);
void Append(Bytes& out, std::string_view text);

inline std::string_view AsText(BytesView bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

inline BytesView AsBytes(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

}  // namespace qublet

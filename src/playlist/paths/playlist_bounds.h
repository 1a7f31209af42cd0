#pragma once

#include <cstddef>
#include <cstdint>

namespace qublet {

// How much of a playlist is taken in, whoever wrote it.
struct PlaylistBounds {
  static constexpr std::int64_t kMostFileBytes = std::int64_t{256} << 20;  // a longer file isn't read
  static constexpr std::size_t kMostLineBytes = std::size_t{32} << 10;     // a longer line is skipped
  // Collecting ends at the first of these; what comes behind is only counted.
  static constexpr std::size_t kMostLines = 32767;  // the room of a list
  static constexpr std::size_t kMostPathBytes = std::size_t{64} << 20;
};

}  // namespace qublet

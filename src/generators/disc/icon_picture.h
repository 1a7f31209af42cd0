#pragma once

#include <cstdint>
#include <vector>

namespace qublet {

inline constexpr int kMostIconSide = 256;

// A picture as plain pixels.
struct IconPicture {
  int width = 0;  // 1 to 256, as is the height
  int height = 0;
  std::vector<std::uint32_t> pixels;  // 0xAARRGGBB, not premultiplied; row by row from the top

  bool operator==(const IconPicture&) const = default;
};

// What the head of a stored picture tells.
struct IconPictureFacts {
  int width = 0;  // 1 to 256, as is the height
  int height = 0;
  int bits = 0;  // a pixel
};

}  // namespace qublet

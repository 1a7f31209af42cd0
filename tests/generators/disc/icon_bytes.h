#pragma once

#include <zlib.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qublet {

// Icon files and what is in them, put together by hand.

inline std::string Little(std::uint32_t number, int count) {
  std::string bytes;
  for (int i = 0; i < count; ++i) bytes += static_cast<char>(number >> (8 * i));
  return bytes;
}

inline std::string Big(std::uint32_t number) {
  std::string bytes;
  for (int i = 3; i >= 0; --i) bytes += static_cast<char>(number >> (8 * i));
  return bytes;
}

struct BitmapHead {
  int width = 1;
  int height = 1;
  int bits = 32;
  std::uint32_t compression = 0;
  std::uint32_t colours = 0;
};

inline std::string BitmapHeadBytes(const BitmapHead& head) {
  return Little(40, 4) + Little(head.width, 4) + Little(2 * head.height, 4) + Little(1, 2) + Little(head.bits, 2) +
         Little(head.compression, 4) + Little(0, 4) + Little(0, 8) + Little(head.colours, 4) + Little(0, 4);
}

// The directory tells of no size or colours; the pictures know them.
inline std::string IconWith(const std::vector<std::string>& pictures) {
  std::string directory = Little(0, 2) + Little(1, 2) + Little(static_cast<std::uint32_t>(pictures.size()), 2);
  std::string all;
  for (const std::string& picture : pictures) {
    const std::size_t start = 6 + 16 * pictures.size() + all.size();
    directory += std::string(8, '\0') + Little(static_cast<std::uint32_t>(picture.size()), 4) +
                 Little(static_cast<std::uint32_t>(start), 4);
    all += picture;
  }
  return directory + all;
}

inline std::string Chunk(std::string_view name, std::string_view data) {
  const std::string summed = std::string(name) + std::string(data);
  const auto sum = crc32(0, reinterpret_cast<const Bytef*>(summed.data()), static_cast<uInt>(summed.size()));
  return Big(static_cast<std::uint32_t>(data.size())) + summed + Big(static_cast<std::uint32_t>(sum));
}

inline std::string Deflated(std::string_view bytes) {
  uLongf size = compressBound(static_cast<uLong>(bytes.size()));
  std::string out(size, '\0');
  compress(reinterpret_cast<Bytef*>(out.data()), &size, reinterpret_cast<const Bytef*>(bytes.data()),
           static_cast<uLong>(bytes.size()));
  out.resize(size);
  return out;
}

struct PngHead {
  std::uint32_t width = 1;
  std::uint32_t height = 1;
  char depth = 8;
  char colour_type = 6;
  char interlaced = 0;
};

// `between`: chunks that stand in front of the pixels. `rows`: each begins with the number of its filter.
inline std::string PngWith(const PngHead& head, std::string_view rows, std::string_view between = {}) {
  const std::string facts =
      Big(head.width) + Big(head.height) + head.depth + head.colour_type + '\0' + '\0' + head.interlaced;
  return std::string("\x89PNG\r\n\x1A\n") + Chunk("IHDR", facts) + std::string(between) +
         Chunk("IDAT", Deflated(rows)) + Chunk("IEND", {});
}

}  // namespace qublet

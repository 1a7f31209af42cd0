#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace qublet {

// What is done to pictures as such. Nothing here throws; any thread may ask.
class PictureCodec {
 public:
  virtual ~PictureCodec() = default;

  // Whether these bytes are a picture that can be shown: BMP, JPEG, GIF or PNG.
  virtual bool IsPicture(std::span<const std::uint8_t> bytes) const = 0;
  // The same picture as a Windows bitmap of 24 bits a pixel, transparency on white. Nothing when it can't be read or
  // the bitmap would be longer than `longest` bytes. Made from such a bitmap it is byte for byte the same.
  virtual std::optional<std::vector<std::uint8_t>> AsBitmap(std::span<const std::uint8_t> bytes,
                                                            std::size_t longest) const = 0;
};

}  // namespace qublet

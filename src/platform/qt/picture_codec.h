#pragma once

#include <QImage>

#include "platform/picture_codec.h"

namespace qublet {

// Pictures by the toolkit's readers.
class QtPictureCodec : public PictureCodec {
 public:
  QtPictureCodec();

  bool IsPicture(std::span<const std::uint8_t> bytes) const override;
  std::optional<std::vector<std::uint8_t>> AsBitmap(std::span<const std::uint8_t> bytes,
                                                    std::size_t longest) const override;
};

// The picture itself, null where it can't be read or is too large to be held. Any thread may ask.
QImage DecodedPicture(std::span<const std::uint8_t> bytes);

}  // namespace qublet

#pragma once

#include <algorithm>
#include <string_view>

#include "platform/picture_codec.h"
#include "support/memory_file.h"

namespace qublet {

// Pictures that a test can write down: "PIC" and anything. Its bitmap is "BM" and the rest; "BM..." is one already.
class FakePictureCodec : public PictureCodec {
 public:
  bool IsPicture(std::span<const std::uint8_t> bytes) const override { return Content(bytes).has_value(); }
  std::optional<Bytes> AsBitmap(std::span<const std::uint8_t> bytes, std::size_t longest_wanted) const override {
    ++encoded;
    const std::optional<std::string_view> content = Content(bytes);
    if (!content || content->size() + 2 > std::min(longest_wanted, longest)) return std::nullopt;
    Bytes bitmap = {'B', 'M'};
    bitmap.insert(bitmap.end(), content->begin(), content->end());
    return bitmap;
  }

  std::size_t longest = 1000;
  mutable int encoded = 0;

 private:
  static std::optional<std::string_view> Content(std::span<const std::uint8_t> bytes) {
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    if (text.starts_with("PIC")) return text.substr(3);
    if (text.starts_with("BM")) return text.substr(2);
    return std::nullopt;
  }
};

}  // namespace qublet

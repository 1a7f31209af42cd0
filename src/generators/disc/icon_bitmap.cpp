#include "generators/disc/icon_bitmap.h"

#include <algorithm>

#include "generators/disc/byte_text.h"

namespace qublet {
namespace {

constexpr std::size_t kHeadSize = 40;
constexpr std::uint32_t kOpaque = 0xFF000000;

// Rows fill whole groups of four bytes.
std::size_t RowSize(int width, int bits) {
  return (static_cast<std::size_t>(width) * bits + 31) / 32 * 4;
}

struct Layout {
  IconPictureFacts facts;
  std::size_t colours = 0;     // how many
  std::size_t colours_at = 0;  // where they begin, as do ...
  std::size_t pixels_at = 0;   // ... the lowest row
  std::size_t mask_at = 0;     // and the lowest row of the mask
  std::size_t end = 0;
};

std::optional<Layout> LayoutOf(std::string_view bytes) {
  const auto facts = FactsOfIconBitmap(bytes);
  if (!facts) return std::nullopt;
  Layout layout{*facts};
  layout.colours_at = LittleEndianAt(bytes, 0, 4);
  const std::size_t used = LittleEndianAt(bytes, 32, 4);
  if (facts->bits <= 8) layout.colours = used == 0 ? std::size_t{1} << facts->bits : used;
  if (layout.colours > 256) return std::nullopt;
  layout.pixels_at = layout.colours_at + layout.colours * 4;
  layout.mask_at = layout.pixels_at + RowSize(facts->width, facts->bits) * facts->height;
  layout.end = layout.mask_at + RowSize(facts->width, 1) * facts->height;
  return layout;
}

// A row of numbers of so many bits each, the highest bits first.
std::size_t NumberAt(std::string_view bytes, std::size_t row, int x, int bits) {
  const std::size_t bit = static_cast<std::size_t>(x) * bits;
  return ByteAt(bytes, row + bit / 8) >> (8 - bits - bit % 8) & ((1u << bits) - 1);
}

std::optional<std::uint32_t> PixelAt(std::string_view bytes, const Layout& layout, int x, int y) {
  const auto [width, height, bits] = layout.facts;
  const std::size_t row = layout.pixels_at + RowSize(width, bits) * (height - 1 - y);
  if (bits == 32) return LittleEndianAt(bytes, row + 4 * x, 4);
  if (bits == 24) return LittleEndianAt(bytes, row + 3 * x, 3) | kOpaque;
  const std::size_t number = NumberAt(bytes, row, x, bits);
  if (number >= layout.colours) return std::nullopt;
  return LittleEndianAt(bytes, layout.colours_at + 4 * number, 3) | kOpaque;
}

void HideMasked(std::string_view bytes, const Layout& layout, IconPicture& picture) {
  const std::size_t row_size = RowSize(picture.width, 1);
  for (int y = 0; y < picture.height; ++y) {
    const std::size_t row = layout.mask_at + row_size * (picture.height - 1 - y);
    for (int x = 0; x < picture.width; ++x) {
      if (NumberAt(bytes, row, x, 1) != 0) picture.pixels[y * picture.width + x] = 0;
    }
  }
}

std::string MaskOf(const IconPicture& picture) {
  const std::size_t row_size = RowSize(picture.width, 1);
  std::string mask(row_size * picture.height, '\0');
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      if ((picture.pixels[y * picture.width + x] & kOpaque) != 0) continue;
      char& byte = mask[row_size * (picture.height - 1 - y) + x / 8];
      byte = static_cast<char>(byte | 0x80 >> x % 8);
    }
  }
  return mask;
}

}  // namespace

std::string IconBitmap(const IconPicture& picture) {
  std::string bytes;
  AppendLittleEndian(bytes, kHeadSize, 4);
  AppendLittleEndian(bytes, picture.width, 4);
  AppendLittleEndian(bytes, picture.height * 2, 4);
  AppendLittleEndian(bytes, 1, 2);
  AppendLittleEndian(bytes, 32, 2);
  AppendLittleEndian(bytes, 0, 4);
  const std::string mask = MaskOf(picture);
  AppendLittleEndian(bytes, static_cast<std::uint32_t>(picture.pixels.size() * 4 + mask.size()), 4);
  bytes.resize(kHeadSize);
  for (int y = picture.height; y-- > 0;) {
    for (int x = 0; x < picture.width; ++x) AppendLittleEndian(bytes, picture.pixels[y * picture.width + x], 4);
  }
  return bytes + mask;
}

std::optional<IconPictureFacts> FactsOfIconBitmap(std::string_view bytes) {
  if (bytes.size() < kHeadSize || LittleEndianAt(bytes, 0, 4) < kHeadSize) return std::nullopt;
  const std::uint32_t width = LittleEndianAt(bytes, 4, 4);
  const std::uint32_t both_heights = LittleEndianAt(bytes, 8, 4);
  const std::uint32_t bits = LittleEndianAt(bytes, 14, 2);
  const std::uint32_t compression = LittleEndianAt(bytes, 16, 4);
  if (width < 1 || width > kMostIconSide || both_heights < 2 || both_heights > 2 * kMostIconSide) return std::nullopt;
  if (both_heights % 2 != 0 || compression != 0) return std::nullopt;
  if (bits != 1 && bits != 4 && bits != 8 && bits != 24 && bits != 32) return std::nullopt;
  return IconPictureFacts{static_cast<int>(width), static_cast<int>(both_heights / 2), static_cast<int>(bits)};
}

std::optional<IconPicture> ReadIconBitmap(std::string_view bytes) {
  const auto layout = LayoutOf(bytes);
  if (!layout) return std::nullopt;
  const bool has_mask = layout->end <= bytes.size();
  if (!has_mask && (layout->facts.bits != 32 || layout->mask_at > bytes.size())) return std::nullopt;
  IconPicture picture{layout->facts.width, layout->facts.height, {}};
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      const auto pixel = PixelAt(bytes, *layout, x, y);
      if (!pixel) return std::nullopt;
      picture.pixels.push_back(*pixel);
    }
  }
  const bool knows_alpha =
      layout->facts.bits == 32 && std::ranges::any_of(picture.pixels, [](auto pixel) { return pixel >> 24 != 0; });
  if (knows_alpha) return picture;
  for (std::uint32_t& pixel : picture.pixels) pixel |= kOpaque;
  if (has_mask) HideMasked(bytes, *layout, picture);
  return picture;
}

}  // namespace qublet

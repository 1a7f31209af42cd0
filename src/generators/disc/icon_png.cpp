#include "generators/disc/icon_png.h"

#include <zlib.h>

#include <algorithm>
#include <cstdlib>

#include "generators/disc/byte_text.h"

namespace qublet {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kSignature = "\x89PNG\r\n\x1A\n"sv;
constexpr std::size_t kAroundData = 12;  // length, name and sum of a chunk
constexpr std::size_t kHeadSize = 13;
constexpr std::size_t kPixelsOfHead = kSignature.size() + 8;

enum ColourType { kGrey = 0, kRgb = 2, kPalette = 3, kGreyAlpha = 4, kRgbAlpha = 6 };

int SamplesOf(int colour_type) {
  switch (colour_type) {
    case kGrey:
    case kPalette:
      return 1;
    case kGreyAlpha:
      return 2;
    case kRgb:
      return 3;
    case kRgbAlpha:
      return 4;
    default:
      return 0;
  }
}

// The value that the samples on the left, above, and above on the left foretell.
int Paeth(int left, int above, int corner) {
  const int guess = left + above - corner;
  const int to_left = std::abs(guess - left), to_above = std::abs(guess - above),
            to_corner = std::abs(guess - corner);
  if (to_left <= to_above && to_left <= to_corner) return left;
  return to_above <= to_corner ? above : corner;
}

int Foretold(int filter, int left, int above, int corner) {
  switch (filter) {
    case 1:
      return left;
    case 2:
      return above;
    case 3:
      return (left + above) / 2;
    case 4:
      return Paeth(left, above, corner);
    default:
      return 0;
  }
}

int At(std::string_view row, std::size_t place) {
  return row.empty() ? 0 : ByteAt(row, place);
}

std::string Filtered(int filter, std::string_view row, std::string_view above, std::size_t pixel) {
  std::string out(1, static_cast<char>(filter));
  for (std::size_t i = 0; i < row.size(); ++i) {
    const int left = i < pixel ? 0 : At(row, i - pixel);
    const int corner = i < pixel ? 0 : At(above, i - pixel);
    out += static_cast<char>(At(row, i) - Foretold(filter, left, At(above, i), corner));
  }
  return out;
}

// The usual guess at what compresses best.
std::string BestFiltered(std::string_view row, std::string_view above, std::size_t pixel) {
  const auto weight = [](std::string_view line) {
    long sum = 0;
    for (const char byte : line.substr(1)) sum += std::abs(static_cast<signed char>(byte));
    return sum;
  };
  std::string best = Filtered(0, row, above, pixel);
  for (int filter = 1; filter <= 4; ++filter) {
    std::string other = Filtered(filter, row, above, pixel);
    if (weight(other) < weight(best)) best = std::move(other);
  }
  return best;
}

std::string Compressed(const std::string& bytes) {
  uLongf size = compressBound(static_cast<uLong>(bytes.size()));
  std::string out(size, '\0');
  compress2(reinterpret_cast<Bytef*>(out.data()), &size, reinterpret_cast<const Bytef*>(bytes.data()),
            static_cast<uLong>(bytes.size()), Z_BEST_COMPRESSION);
  out.resize(size);
  return out;
}

void AppendChunk(std::string& out, std::string_view name, std::string_view data) {
  AppendBigEndian(out, static_cast<std::uint32_t>(data.size()), 4);
  const std::size_t start = out.size();
  out.append(name).append(data);
  const auto* summed = reinterpret_cast<const Bytef*>(out.data() + start);
  AppendBigEndian(out, static_cast<std::uint32_t>(crc32(0, summed, static_cast<uInt>(out.size() - start))), 4);
}

struct Chunks {
  std::string palette;
  std::string transparency;
  std::string data;
};

// Up to the first chunk that isn't whole.
Chunks ChunksOf(std::string_view bytes) {
  Chunks chunks;
  std::size_t place = kSignature.size();
  while (bytes.size() - place >= kAroundData) {
    const std::size_t size = BigEndianAt(bytes, place, 4);
    if (size > bytes.size() - place - kAroundData) break;
    const std::string_view name = bytes.substr(place + 4, 4);
    const std::string_view data = bytes.substr(place + 8, size);
    if (name == "PLTE") chunks.palette = data;
    if (name == "tRNS") chunks.transparency = data;
    if (name == "IDAT") chunks.data += data;
    place += kAroundData + size;
  }
  return chunks;
}

// All rows without their filters, or nothing.
std::optional<std::string> RowsOf(const std::string& data, std::size_t row_size, int height, std::size_t pixel) {
  uLongf size = static_cast<uLongf>((row_size + 1) * height);
  std::string rows(size, '\0');
  const std::size_t wanted = rows.size();
  if (uncompress(reinterpret_cast<Bytef*>(rows.data()), &size, reinterpret_cast<const Bytef*>(data.data()),
                 static_cast<uLong>(data.size())) != Z_OK ||
      size != wanted) {
    return std::nullopt;
  }
  std::string out;
  for (int y = 0; y < height; ++y) {
    const std::string_view line = std::string_view(rows).substr((row_size + 1) * y, row_size + 1);
    const int filter = ByteAt(line, 0);
    if (filter > 4) return std::nullopt;
    const std::size_t start = out.size();
    for (std::size_t i = 0; i < row_size; ++i) {
      const int left = i < pixel ? 0 : ByteAt(out, start + i - pixel);
      const int above = y == 0 ? 0 : ByteAt(out, start + i - row_size);
      const int corner = i < pixel || y == 0 ? 0 : ByteAt(out, start + i - row_size - pixel);
      out += static_cast<char>(ByteAt(line, i + 1) + Foretold(filter, left, above, corner));
    }
  }
  return out;
}

std::uint32_t Pixel(std::uint32_t alpha, std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
  return alpha << 24 | red << 16 | green << 8 | blue;
}

std::optional<std::uint32_t> PaletteColour(const Chunks& chunks, std::size_t number) {
  if (chunks.palette.size() < 3 * number + 3) return std::nullopt;
  const std::uint32_t alpha = number < chunks.transparency.size() ? ByteAt(chunks.transparency, number) : 0xFF;
  return alpha << 24 | BigEndianAt(chunks.palette, 3 * number, 3);
}

std::optional<std::uint32_t> PixelAt(std::string_view row, int x, int colour_type, int depth, const Chunks& chunks) {
  const std::size_t place = static_cast<std::size_t>(x) * SamplesOf(colour_type);
  const std::size_t bit = static_cast<std::size_t>(x) * depth;
  switch (colour_type) {
    case kGrey:
      return Pixel(0xFF, ByteAt(row, place), ByteAt(row, place), ByteAt(row, place));
    case kGreyAlpha:
      return Pixel(ByteAt(row, place + 1), ByteAt(row, place), ByteAt(row, place), ByteAt(row, place));
    case kRgb:
      return Pixel(0xFF, ByteAt(row, place), ByteAt(row, place + 1), ByteAt(row, place + 2));
    case kRgbAlpha:
      return Pixel(ByteAt(row, place + 3), ByteAt(row, place), ByteAt(row, place + 1), ByteAt(row, place + 2));
    default:
      return PaletteColour(chunks, ByteAt(row, bit / 8) >> (8 - depth - bit % 8) & ((1u << depth) - 1));
  }
}

}  // namespace

bool IsIconPng(std::string_view bytes) {
  return bytes.starts_with(kSignature);
}

std::string IconPng(const IconPicture& picture) {
  std::string head;
  AppendBigEndian(head, picture.width, 4);
  AppendBigEndian(head, picture.height, 4);
  head += "\x08\x06\0\0\0"sv;
  std::string rows, above;
  for (int y = 0; y < picture.height; ++y) {
    std::string row;
    for (int x = 0; x < picture.width; ++x) {
      const std::uint32_t pixel = picture.pixels[y * picture.width + x];
      AppendBigEndian(row, pixel << 8 | pixel >> 24, 4);
    }
    rows += BestFiltered(row, above, 4);
    above = std::move(row);
  }
  std::string bytes(kSignature);
  AppendChunk(bytes, "IHDR", head);
  AppendChunk(bytes, "IDAT", Compressed(rows));
  AppendChunk(bytes, "IEND", {});
  return bytes;
}

std::optional<IconPictureFacts> FactsOfIconPng(std::string_view bytes) {
  if (!IsIconPng(bytes) || bytes.size() < kPixelsOfHead + kHeadSize) return std::nullopt;
  if (BigEndianAt(bytes, kSignature.size(), 4) != kHeadSize || bytes.substr(kPixelsOfHead - 4, 4) != "IHDR") {
    return std::nullopt;
  }
  const std::uint32_t width = BigEndianAt(bytes, kPixelsOfHead, 4);
  const std::uint32_t height = BigEndianAt(bytes, kPixelsOfHead + 4, 4);
  if (width < 1 || width > kMostIconSide || height < 1 || height > kMostIconSide) return std::nullopt;
  const int depth = ByteAt(bytes, kPixelsOfHead + 8);
  const int colour_type = ByteAt(bytes, kPixelsOfHead + 9);
  const bool shallow = colour_type == kPalette && (depth == 1 || depth == 2 || depth == 4);
  const bool plain = bytes.substr(kPixelsOfHead + 10, 3) == "\0\0\0"sv;
  if (SamplesOf(colour_type) == 0 || (depth != 8 && !shallow) || !plain) return std::nullopt;
  return IconPictureFacts{static_cast<int>(width), static_cast<int>(height), depth * SamplesOf(colour_type)};
}

std::optional<IconPicture> ReadIconPng(std::string_view bytes) {
  const auto facts = FactsOfIconPng(bytes);
  if (!facts) return std::nullopt;
  const int depth = ByteAt(bytes, kPixelsOfHead + 8);
  const int colour_type = ByteAt(bytes, kPixelsOfHead + 9);
  const Chunks chunks = ChunksOf(bytes);
  if (colour_type != kPalette && !chunks.transparency.empty()) return std::nullopt;
  const std::size_t row_size = (static_cast<std::size_t>(facts->width) * facts->bits + 7) / 8;
  const auto rows = RowsOf(chunks.data, row_size, facts->height, std::max(1, facts->bits / 8));
  if (!rows) return std::nullopt;
  IconPicture picture{facts->width, facts->height, {}};
  for (int y = 0; y < facts->height; ++y) {
    const std::string_view row = std::string_view(*rows).substr(row_size * y, row_size);
    for (int x = 0; x < facts->width; ++x) {
      const auto pixel = PixelAt(row, x, colour_type, depth, chunks);
      if (!pixel) return std::nullopt;
      picture.pixels.push_back(*pixel);
    }
  }
  return picture;
}

}  // namespace qublet

#include "generators/disc/icon_file.h"

#include <algorithm>
#include <vector>

#include "generators/disc/byte_text.h"
#include "generators/disc/icon_bitmap.h"
#include "generators/disc/icon_png.h"

namespace qublet {
namespace {

constexpr std::size_t kHeadSize = 6;
constexpr std::size_t kEntrySize = 16;
constexpr std::size_t kMostEntries = 64;
constexpr std::uint32_t kIcon = 1;  // 2 is a cursor
constexpr int kMostBitmapSide = 48;

bool IsComplete(const IconPicture& picture) {
  return picture.width >= 1 && picture.width <= kMostIconSide && picture.height >= 1 &&
         picture.height <= kMostIconSide &&
         picture.pixels.size() == static_cast<std::size_t>(picture.width) * picture.height;
}

int LargerSide(int width, int height) {
  return std::max(width, height);
}

std::string Stored(const IconPicture& picture) {
  return LargerSide(picture.width, picture.height) <= kMostBitmapSide ? IconBitmap(picture) : IconPng(picture);
}

struct Entry {
  std::string_view bytes;
  IconPictureFacts facts;
};

// What the directory says of sizes and colours is often wrong; the pictures know it.
std::optional<Entry> EntryAt(std::string_view file, std::size_t place) {
  if (place + kEntrySize > file.size()) return std::nullopt;
  const std::size_t size = LittleEndianAt(file, place + 8, 4);
  const std::size_t start = LittleEndianAt(file, place + 12, 4);
  if (start >= file.size()) return std::nullopt;
  const std::string_view bytes = file.substr(start, size);
  const auto facts = IsIconPng(bytes) ? FactsOfIconPng(bytes) : FactsOfIconBitmap(bytes);
  if (!facts) return std::nullopt;
  return Entry{bytes, *facts};
}

std::vector<Entry> EntriesOf(std::string_view file) {
  std::vector<Entry> entries;
  if (file.size() < kHeadSize || LittleEndianAt(file, 0, 2) != 0 || LittleEndianAt(file, 2, 2) != kIcon)
    return entries;
  const std::size_t count = std::min<std::size_t>(LittleEndianAt(file, 4, 2), kMostEntries);
  for (std::size_t i = 0; i < count; ++i) {
    if (const auto entry = EntryAt(file, kHeadSize + i * kEntrySize)) entries.push_back(*entry);
  }
  return entries;
}

bool IsBetter(const IconPictureFacts& a, const IconPictureFacts& b, int side) {
  const int side_a = LargerSide(a.width, a.height);
  const int side_b = LargerSide(b.width, b.height);
  if (side_a == side_b) return a.bits > b.bits;
  if ((side_a < side) != (side_b < side)) return side_a >= side;
  return side_a < side ? side_a > side_b : side_a < side_b;
}

}  // namespace

std::optional<std::string> IconFileOf(std::span<const IconPicture> pictures) {
  if (pictures.empty() || pictures.size() > kMostEntries || !std::ranges::all_of(pictures, IsComplete)) {
    return std::nullopt;
  }
  std::string directory, stored;
  AppendLittleEndian(directory, 0, 2);
  AppendLittleEndian(directory, kIcon, 2);
  AppendLittleEndian(directory, static_cast<std::uint32_t>(pictures.size()), 2);
  for (const IconPicture& picture : pictures) {
    const std::string bytes = Stored(picture);
    // Here 0 stands for 256.
    AppendLittleEndian(directory, picture.width % kMostIconSide, 1);
    AppendLittleEndian(directory, picture.height % kMostIconSide, 1);
    AppendLittleEndian(directory, 0, 2);
    AppendLittleEndian(directory, 1, 2);
    AppendLittleEndian(directory, 32, 2);
    AppendLittleEndian(directory, static_cast<std::uint32_t>(bytes.size()), 4);
    AppendLittleEndian(directory,
                       static_cast<std::uint32_t>(kHeadSize + pictures.size() * kEntrySize + stored.size()), 4);
    stored += bytes;
  }
  return directory + stored;
}

std::optional<IconPicture> ReadIcon(std::string_view bytes, int side) {
  std::vector<Entry> entries = EntriesOf(bytes);
  std::ranges::stable_sort(entries,
                           [side](const Entry& a, const Entry& b) { return IsBetter(a.facts, b.facts, side); });
  for (const Entry& entry : entries) {
    auto picture = IsIconPng(entry.bytes) ? ReadIconPng(entry.bytes) : ReadIconBitmap(entry.bytes);
    if (picture) return picture;
  }
  return std::nullopt;
}

}  // namespace qublet

#include "media/tag_bounds.h"

#include <algorithm>
#include <string_view>

#include "media/file_window.h"
#include "media/id3/raw_tag.h"

namespace qublet {
namespace {

using ByteSpan = std::span<const std::uint8_t>;

constexpr std::int64_t kId3v1Length = 128;
constexpr std::int64_t kApeFooterLength = 32;
constexpr std::int64_t kLyricsSizeLength = 6;
constexpr std::int64_t kLyricsEndLength = 9;
// The older Lyrics3 doesn't say how long it is; it is no longer than this.
constexpr std::int64_t kLongestOldLyrics = 11 + 5100 + kLyricsEndLength;
// A file has two or three tags at its end; more than this is a heap of forged ones.
constexpr int kMostTags = 8;

bool StartsWith(ByteSpan bytes, std::string_view letters) {
  return bytes.size() >= letters.size() && std::equal(letters.begin(), letters.end(), bytes.begin());
}

// 28 bits, seven in each byte; -1 when a byte has its top bit set.
std::int64_t SyncSafe(ByteSpan bytes) {
  std::int64_t value = 0;
  for (const std::uint8_t byte : bytes.first(4)) {
    if (byte >= 0x80) return -1;
    value = value << 7 | byte;
  }
  return value;
}

// The last `length` bytes in front of `end`, none when there aren't so many.
ByteSpan Before(FileWindow& window, std::int64_t end, std::int64_t length) {
  if (end < length) return {};
  const ByteSpan found = window.From(end - length, static_cast<std::size_t>(length));
  return found.first(std::min(found.size(), static_cast<std::size_t>(length)));
}

std::int64_t ApeLength(ByteSpan footer) {
  if (!StartsWith(footer, "APETAGEX") || footer.size() < kApeFooterLength) return 0;
  const std::int64_t items_and_footer = static_cast<std::int64_t>(footer[12]) | footer[13] << 8 | footer[14] << 16 |
                                        static_cast<std::int64_t>(footer[15]) << 24;
  if (items_and_footer < kApeFooterLength) return 0;
  const bool has_header = (footer[23] & 0x80) != 0;
  return items_and_footer + (has_header ? kApeFooterLength : 0);
}

std::int64_t LyricsLength(ByteSpan trailer) {
  if (trailer.size() < kLyricsSizeLength) return 0;
  if (!StartsWith(trailer.subspan(kLyricsSizeLength), "LYRICS200")) return 0;
  std::int64_t length = 0;
  for (const std::uint8_t digit : trailer.first(kLyricsSizeLength)) {
    if (digit < '0' || digit > '9') return 0;
    length = length * 10 + (digit - '0');
  }
  return length + kLyricsSizeLength + kLyricsEndLength;
}

std::int64_t OldLyricsLength(FileWindow& window, std::int64_t end) {
  if (!StartsWith(Before(window, end, kLyricsEndLength), "LYRICSEND")) return 0;
  constexpr std::string_view kBegin = "LYRICSBEGIN";
  const ByteSpan block = Before(window, end, std::min(end, kLongestOldLyrics));
  const auto begin = std::find_end(block.begin(), block.end(), kBegin.begin(), kBegin.end());
  return block.end() - begin;
}

std::int64_t AppendedId3v2Length(ByteSpan footer) {
  if (!StartsWith(footer, "3DI") || footer.size() < kId3v2HeadLength) return 0;
  const std::int64_t length = SyncSafe(footer.subspan(6));
  return length < 0 ? 0 : length + kId3v2HeadLength + kId3v2HeadLength;
}

// Length of the tag that ends at `end`, 0 when none does.
std::int64_t LengthOfTagBefore(FileWindow& window, std::int64_t end) {
  const bool can_be_id3v1 = end == window.Size();
  if (can_be_id3v1 && StartsWith(Before(window, end, kId3v1Length), "TAG")) return kId3v1Length;
  if (const auto length = ApeLength(Before(window, end, kApeFooterLength))) return length;
  if (const auto length = LyricsLength(Before(window, end, kLyricsSizeLength + kLyricsEndLength))) return length;
  if (const auto length = OldLyricsLength(window, end)) return length;
  return AppendedId3v2Length(Before(window, end, kId3v2HeadLength));
}

}  // namespace

std::int64_t Id3v2Length(std::span<const std::uint8_t> head) {
  const auto header = ParseTagHeader(head);
  return header ? header->Extent() : 0;
}

std::int64_t AudioEnd(InputFile& file, std::int64_t first) {
  FileWindow window(file);
  std::int64_t end = window.Size();
  // One read shows whether there is an ID3v1 tag, and an APE tag before it.
  Before(window, end, std::min(end, kId3v1Length + kApeFooterLength));
  for (int tags = 0; tags < kMostTags; ++tags) {
    const std::int64_t length = LengthOfTagBefore(window, end);
    if (length == 0 || end - length < first) break;
    end -= length;
  }
  return end;
}

}  // namespace qublet

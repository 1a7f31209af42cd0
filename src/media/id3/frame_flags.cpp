#include <algorithm>

#include "media/id3/inflate.h"
#include "media/id3/raw_tag.h"
#include "media/id3/unsynchronisation.h"

namespace qublet {
namespace {

// The flags of a frame, under the bits of its version; a version that lacks one has 0 there.
struct FlagBits {
  std::uint16_t status;   // what a program is asked to do with the frame
  std::uint16_t grouped;  // one byte in front of the content
  std::uint16_t compressed;
  std::uint16_t encrypted;
  std::uint16_t unsynchronised;
  std::uint16_t data_length;  // four bytes in front of the content
};

constexpr FlagBits kFlagBits3 = {0xFF00, 0x0020, 0x0080, 0x0040, 0, 0};
constexpr FlagBits kFlagBits4 = {0xFF00, 0x0040, 0x0008, 0x0004, 0x0002, 0x0001};

const FlagBits& BitsOf(int version) {
  return version == 4 ? kFlagBits4 : kFlagBits3;
}

bool Has(const RawFrame& frame, std::uint16_t bits) {
  return (frame.flags & bits) != 0;
}

constexpr std::size_t kMiB = 1 << 20;
constexpr std::size_t kAlways = 64 * 1024;
constexpr std::size_t kMostPicture = 16 * kMiB;
// Of all compressed frames of a tag together.
constexpr std::size_t kMostOfATag = 64 * kMiB;

constexpr std::size_t kSizeField = 4;

std::size_t MostInflated(const RawFrame& frame) {
  return ShownId(frame) == "APIC" ? kMostPicture : kMostText;
}

// The bytes in front of the content that the flags put there.
struct Front {
  std::size_t length = 0;
  std::optional<std::size_t> size_at;  // where the size of what was compressed stands
};

Front FrontOf(const RawFrame& frame, int version) {
  const FlagBits& bits = BitsOf(version);
  const std::size_t group = Has(frame, bits.grouped) ? 1 : 0;
  if (version == 4)
    return Has(frame, bits.data_length) ? Front{group + kSizeField, group} : Front{group, std::nullopt};
  return Has(frame, bits.compressed) ? Front{kSizeField + group, 0} : Front{group, std::nullopt};
}

// The most that a compressed frame may take, whatever it claims if that is little; 0 when it claims too much.
std::size_t RoomFor(const RawFrame& frame, int version) {
  const Front front = FrontOf(frame, version);
  const std::size_t most = MostInflated(frame);
  if (!front.size_at || front.length > frame.content.size()) return most;
  const std::size_t size =
      ReadNumber(BytesView(frame.content).subspan(*front.size_at, kSizeField), version == 4 ? 7 : 8);
  return size <= most ? std::max(size, kAlways) : 0;
}

}  // namespace

bool IsCompressed(const RawFrame& frame, const RawTag& tag) {
  return Has(frame, BitsOf(tag.version).compressed);
}

bool ShowsCompressed(const RawTag& tag) {
  std::size_t sum = 0;
  for (const RawFrame& frame : tag.frames) {
    if (IsCompressed(frame, tag)) sum += RoomFor(frame, tag.version);
  }
  return sum <= kMostOfATag;
}

bool IsPlain(const RawFrame& frame, const RawTag& tag) {
  const bool unsynchronised = tag.version == 4 && tag.unsynchronised;
  return !unsynchronised && (frame.flags & ~BitsOf(tag.version).status) == 0;
}

std::optional<Bytes> PlainContent(const RawFrame& frame, const RawTag& tag, std::size_t most) {
  const FlagBits& bits = BitsOf(tag.version);
  if (Has(frame, bits.encrypted)) return std::nullopt;
  const std::size_t skipped = FrontOf(frame, tag.version).length;
  if (skipped > frame.content.size()) return std::nullopt;

  BytesView stored = BytesView(frame.content).subspan(skipped);
  const bool claimed = Has(frame, bits.unsynchronised) || (tag.version == 4 && tag.unsynchronised);
  const bool unsynchronised = claimed && IsUnsynchronised(stored);
  if (!IsCompressed(frame, tag)) stored = stored.first(std::min(stored.size(), most));
  Bytes content = unsynchronised ? Resynchronise(stored) : Bytes(stored.begin(), stored.end());
  if (!IsCompressed(frame, tag)) return content;
  const std::size_t room = RoomFor(frame, tag.version);
  return room > 0 ? Inflated(content, room) : std::nullopt;
}

void ReplaceContent(RawFrame& frame, const Bytes& content, const RawTag& tag) {
  const FlagBits& bits = BitsOf(tag.version);
  frame.flags &= bits.status;
  if (tag.version == 4 && tag.unsynchronised) {
    frame.flags |= bits.unsynchronised;
    frame.content = Unsynchronise(content);
  } else {
    frame.content = content;
  }
}

}  // namespace qublet

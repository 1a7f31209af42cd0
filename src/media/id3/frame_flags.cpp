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

}  // namespace

std::optional<Bytes> PlainContent(const RawFrame& frame, const RawTag& tag) {
  const FlagBits& bits = BitsOf(tag.version);
  if (Has(frame, bits.compressed | bits.encrypted)) return std::nullopt;
  const std::size_t skipped = (Has(frame, bits.grouped) ? 1u : 0u) + (Has(frame, bits.data_length) ? 4u : 0u);
  if (skipped > frame.content.size()) return std::nullopt;

  const BytesView content = BytesView(frame.content).subspan(skipped);
  const bool claimed = Has(frame, bits.unsynchronised) || (tag.version == 4 && tag.unsynchronised);
  if (claimed && IsUnsynchronised(content)) return Resynchronise(content);
  return Bytes(content.begin(), content.end());
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

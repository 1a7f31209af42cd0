#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "media/id3/shared_bytes.h"

namespace qublet {

// An ID3v2 tag as it stands in a file: a list of frames whose bytes nobody has looked into. What is read here and
// written again is the same, byte for byte, apart from sizes, padding, the extended header and the footer.

// The ten bytes at the start of every tag.
struct TagHeader {
  static constexpr std::size_t kSize = 10;

  int version = 3;  // the second number of "ID3v2.3.0"
  std::uint8_t flags = 0;
  std::uint32_t body_size = 0;

  bool ClaimsFooter() const;
  void DropFooter();
  // Bytes from the start of the header to the end of the tag, padding and footer included.
  std::int64_t Extent() const;
};

// Nothing when the bytes aren't a tag header.
std::optional<TagHeader> ParseTagHeader(BytesView bytes);

struct RawFrame {
  std::string id;           // three characters in ID3v2.2, else four
  std::uint16_t flags = 0;  // as stored; their meaning depends on the version
  SharedBytes content;      // as stored, with whatever the flags put in front of it

  bool operator==(const RawFrame&) const = default;
};

struct RawTag {
  int version = 3;
  bool unsynchronised = false;  // the whole tag up to ID3v2.3; in 2.4 the frames say it once more
  std::vector<RawFrame> frames;
  Bytes tail;  // what stands behind the frames and isn't padding

  bool operator==(const RawTag&) const = default;
};

// The frames of a tag from the bytes behind its header. Nothing for a tag of a kind that can't be understood: a
// version other than 2.2, 2.3 and 2.4, or 2.2 compressed as a whole. Frame sizes are taken as the version wants them
// unless only the other form (plain or sync-safe) makes sense of the tag. What isn't frames ends up in the tail.
std::optional<RawTag> ParseTag(const TagHeader& header, BytesView body);
// The same from bytes that it may keep: the longest frame takes them over, so that a large one costs no second copy.
std::optional<RawTag> TakeTag(const TagHeader& header, Bytes body);

// The bytes of a whole tag of version 3 or 4, without padding. Throws Failure when it is too large for its size field
// or wouldn't be read back as the same tag.
Bytes SerialiseTag(const RawTag& tag);
// Whether other programs may take the sizes in the bytes of a whole tag for others than they are, so that they would
// see other frames in it. It takes junk behind the frames, or bytes made up for it.
bool IsAmbiguous(BytesView tag);
// Whether they see others already in the bytes of a whole tag, or would once its sizes have the form of its version:
// any change would change that.
bool IsReadOtherwise(BytesView tag);
// Makes the bytes of a tag longer, up to `extent` bytes altogether. False, and nothing is done, when that is too
// large, when the tag ends in a frame that is cut off, which would get longer, or when it would become ambiguous.
bool PadTag(Bytes& tag, std::size_t extent);

// The bytes of a whole tag to be written in the place of one of `present` bytes, padded to that length if it fits.
// Throws Failure as SerialiseTag does, and for a tag that is ambiguous however it is padded.
Bytes FittedTag(const RawTag& tag, std::size_t present);

// The same tag in ID3v2.3 when it is one of 2.2. Frames that 2.3 doesn't know are kept whole, in a PRIV frame of the
// owner kForeignFrameOwner, and so is what stands behind the frames, unless it is a known frame that is cut off.
RawTag Upgraded(RawTag tag);
inline constexpr char kForeignFrameOwner[] = "QUBLET_id3v22frame";
inline constexpr char kForeignTailOwner[] = "QUBLET_id3v22tail";

// The four-character id of a frame that a file has under a three-letter id filled up with a zero, else its own.
std::string_view ShownId(const RawFrame& frame);

bool IsCompressed(const RawFrame& frame, const RawTag& tag);
// Whether the compressed frames of a tag take so little memory, by what they claim, that they can be shown.
bool ShowsCompressed(const RawTag& tag);
// The bytes that the frame's id defines, flags resolved; nothing when they are encrypted, broken, or compressed and
// longer than a text (1 MiB) or a picture (16 MiB) should be.
// Of what isn't compressed no more than the first `most` stored bytes.
std::optional<Bytes> PlainContent(const RawFrame& frame, const RawTag& tag, std::size_t most = SIZE_MAX);
// Whether that is what the frame holds, as it stands there.
bool IsPlain(const RawFrame& frame, const RawTag& tag);
// So many bytes of a frame are looked at where a text is wanted; the rest of it is neither shown nor touched. A frame
// can have 256 MiB, and nobody reads them.
inline constexpr std::size_t kMostText = 1 << 20;
// The content as ShownId's frame has it, which differs where ID3v2.2 had another layout. Of a text no more than
// kMostText bytes. It may stand in the frame itself, so it is valid for as long as that and `room` are.
std::optional<BytesView> ShownContent(const RawFrame& frame, const RawTag& tag, Bytes& room);
// Gives the frame a new content and keeps its status flags. It leaves its group: few programs can read a grouped
// frame.
void ReplaceContent(RawFrame& frame, const Bytes& content, const RawTag& tag);

}  // namespace qublet

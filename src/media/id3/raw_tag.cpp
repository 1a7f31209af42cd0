#include "media/id3/raw_tag.h"

#include <algorithm>

#include "media/id3/frame_walk.h"
#include "media/id3/unsynchronisation.h"
#include "platform/failure.h"

namespace qublet {
namespace {

constexpr std::uint8_t kTagUnsynchronised = 0x80;
constexpr std::uint8_t kTagCompressed = 0x40;      // ID3v2.2
constexpr std::uint8_t kTagExtendedHeader = 0x40;  // later versions
constexpr std::uint8_t kTagFooter = 0x10;          // ID3v2.4

constexpr std::ptrdiff_t kSizeField = 6;  // of the header

// Length of the extended header, 0 where the flag lies: some programs set it and go on with the frames at once.
std::size_t ExtendedHeaderSize(BytesView body, int version) {
  if (body.size() < 4 || IsFrameId(body.first(4))) return 0;
  const std::size_t size =
      version == 4 ? ReadNumber(body.first(4), 7) : static_cast<std::size_t>(ReadNumber(body.first(4))) + 4;
  return std::min(size, body.size());
}

// The frames and what follows them. Where the whole tag is unsynchronised, `plain` becomes what that stands for.
BytesView FrameBytes(const TagHeader& header, BytesView body, std::optional<Bytes>& plain) {
  body = body.first(std::min<std::size_t>(body.size(), header.body_size));
  if (header.version < 4 && (header.flags & kTagUnsynchronised) != 0 && IsUnsynchronised(body)) {
    plain = Resynchronise(body);
    body = *plain;
  }
  const bool extended = header.version > 2 && (header.flags & kTagExtendedHeader) != 0;
  return body.subspan(extended ? ExtendedHeaderSize(body, header.version) : 0);
}

// Without its content.
RawFrame FrameAt(BytesView body, std::size_t start, int version) {
  RawFrame frame;
  frame.id = AsText(body.subspan(start, ShapeOf(version, false).id_length));
  if (version > 2) frame.flags = static_cast<std::uint16_t>(ReadNumber(body.subspan(start + 8, 2)));
  return frame;
}

// Where the contents of all frames stand.
std::vector<BytesView> ContentsOf(BytesView body, const FrameWalk& walk, int version) {
  std::vector<BytesView> contents;
  contents.reserve(walk.starts.size());
  for (std::size_t i = 0; i < walk.starts.size(); ++i) {
    const std::size_t start = walk.starts[i] + FrameHeaderSize(version);
    const std::size_t end = i + 1 < walk.starts.size() ? walk.starts[i + 1] : walk.end;
    contents.push_back(body.subspan(start, end - start));
  }
  return contents;
}

// The zeros at the end of a frame that is cut off may be its own.
BytesView TailOf(BytesView body, const FrameWalk& walk, int version) {
  BytesView tail = body.subspan(walk.clean ? body.size() : walk.end);
  if (EndsInCutFrame(tail, version)) return tail;
  while (!tail.empty() && tail.back() == 0) tail = tail.first(tail.size() - 1);
  return tail;
}

// A tag whose contents stand in other bytes.
struct Outline {
  RawTag tag;  // frames without content, no tail
  std::vector<BytesView> contents;
  BytesView tail;
  std::optional<Bytes> plain;  // what they stand in where the whole tag is unsynchronised

  bool operator==(const Outline& other) const {
    return tag == other.tag && std::ranges::equal(contents, other.contents, std::ranges::equal) &&
           std::ranges::equal(tail, other.tail);
  }
};

std::optional<Outline> OutlineOf(const TagHeader& header, BytesView bytes) {
  const int version = header.version;
  if (version < 2 || version > 4 || (version == 2 && (header.flags & kTagCompressed) != 0)) return std::nullopt;
  Outline outline;
  const BytesView body = FrameBytes(header, bytes, outline.plain);
  outline.tag.version = version;
  outline.tag.unsynchronised = (header.flags & kTagUnsynchronised) != 0 && (version == 4 || outline.plain);
  const FrameWalk walk = WalkFrames(body, version);
  outline.tag.frames.reserve(walk.starts.size());
  for (const std::size_t start : walk.starts) outline.tag.frames.push_back(FrameAt(body, start, version));
  outline.contents = ContentsOf(body, walk, version);
  outline.tail = TailOf(body, walk, version);
  return outline;
}

std::optional<Outline> OutlineOf(BytesView tag) {
  const auto header = ParseTagHeader(tag);
  return header ? OutlineOf(*header, tag.subspan(TagHeader::kSize)) : std::nullopt;
}

Outline OutlineOf(const RawTag& tag) {
  Outline outline{{tag.version, tag.unsynchronised, {}, {}}, {}, tag.tail, std::nullopt};
  for (const RawFrame& frame : tag.frames) {
    outline.tag.frames.push_back({frame.id, frame.flags, {}});
    outline.contents.push_back(frame.content);
  }
  return outline;
}

// Makes of bytes the part of them that is given.
void CutDown(Bytes& bytes, BytesView part) {
  const std::ptrdiff_t start = part.data() - bytes.data();
  bytes.resize(static_cast<std::size_t>(start) + part.size());
  bytes.erase(bytes.begin(), bytes.begin() + start);
}

void AppendFrame(Bytes& out, const RawFrame& frame, int version) {
  const std::uint32_t most = version == 4 ? kMaxSyncSafe : 0xFFFFFFFF;
  if (frame.content.size() > most) throw Failure("a frame is too large", frame.id);
  Append(out, frame.id);
  AppendNumber(out, static_cast<std::uint32_t>(frame.content.size()), 4, version == 4 ? 7 : 8);
  AppendNumber(out, frame.flags, 2);
  Append(out, frame.content);
}

// Of a whole tag that isn't unsynchronised.
std::size_t SizeOf(const RawTag& tag) {
  std::size_t size = TagHeader::kSize + tag.tail.size();
  for (const RawFrame& frame : tag.frames) size += FrameHeaderSize(tag.version) + frame.content.size();
  return size;
}

// Room left behind the frames of a tag that had to grow, so that the next change moves nothing.
constexpr std::size_t kNewPadding = 2048;
// More than this isn't kept when frames went.
constexpr std::size_t kMostPadding = 64 * 1024;

void WriteSize(Bytes& tag) {
  Bytes size;
  AppendNumber(size, static_cast<std::uint32_t>(tag.size() - TagHeader::kSize), 4, 7);
  std::ranges::copy(size, tag.begin() + kSizeField);
}

}  // namespace

bool TagHeader::ClaimsFooter() const {
  return version >= 4 && (flags & kTagFooter) != 0;
}

void TagHeader::DropFooter() {
  flags &= static_cast<std::uint8_t>(~kTagFooter);
}

std::int64_t TagHeader::Extent() const {
  return static_cast<std::int64_t>(body_size) + static_cast<std::int64_t>(ClaimsFooter() ? 2 * kSize : kSize);
}

std::optional<TagHeader> ParseTagHeader(BytesView bytes) {
  if (bytes.size() < TagHeader::kSize || AsText(bytes.first(3)) != "ID3") return std::nullopt;
  if (bytes[3] == 0xFF || bytes[4] == 0xFF || !IsSyncSafe(bytes.subspan(6, 4))) return std::nullopt;
  return TagHeader{bytes[3], bytes[5], ReadNumber(bytes.subspan(6, 4), 7)};
}

std::optional<RawTag> ParseTag(const TagHeader& header, BytesView body) {
  return TakeTag(header, Bytes(body.begin(), body.end()));
}

std::optional<RawTag> TakeTag(const TagHeader& header, Bytes bytes) {
  auto outline = OutlineOf(header, bytes);
  if (!outline) return std::nullopt;
  RawTag& tag = outline->tag;
  const std::vector<BytesView>& contents = outline->contents;
  const auto longest = std::ranges::max_element(contents, {}, [](BytesView content) { return content.size(); });
  for (auto content = contents.begin(); content != contents.end(); ++content) {
    if (content == longest) continue;
    tag.frames[static_cast<std::size_t>(content - contents.begin())].content =
        Bytes(content->begin(), content->end());
  }
  tag.tail.assign(outline->tail.begin(), outline->tail.end());
  if (longest != contents.end()) {
    Bytes& room = outline->plain ? *outline->plain : bytes;
    CutDown(room, *longest);
    tag.frames[static_cast<std::size_t>(longest - contents.begin())].content = std::move(room);
  }
  return std::move(tag);
}

Bytes SerialiseTag(const RawTag& tag) {
  Bytes out;
  out.reserve(SizeOf(tag));
  Append(out, "ID3");
  out.push_back(static_cast<std::uint8_t>(tag.version));
  out.push_back(0);
  out.push_back(tag.unsynchronised ? kTagUnsynchronised : 0);
  out.resize(TagHeader::kSize);
  for (const RawFrame& frame : tag.frames) AppendFrame(out, frame, tag.version);
  Append(out, tag.tail);
  if (tag.unsynchronised && tag.version < 4) {
    const Bytes body = Unsynchronise(BytesView(out).subspan(TagHeader::kSize));
    out.resize(TagHeader::kSize);
    Append(out, body);
  }
  if (out.size() > kMaxSyncSafe + TagHeader::kSize) throw Failure("a tag is too large");
  WriteSize(out);
  if (OutlineOf(BytesView(out)) != OutlineOf(tag)) throw Failure("a tag would be read back as another one");
  return out;
}

bool IsAmbiguous(BytesView tag) {
  const auto header = ParseTagHeader(tag);
  return header && header->version == 4 && LooksPlainToOthers(tag.subspan(TagHeader::kSize));
}

bool IsReadOtherwise(BytesView tag) {
  const auto header = ParseTagHeader(tag);
  if (!header || header->version < 3 || header->version > 4) return false;
  std::optional<Bytes> plain;
  const BytesView body = FrameBytes(*header, tag.subspan(TagHeader::kSize), plain);
  const FrameWalk walk = WalkFrames(body, header->version);
  if (!walk.other_form) return header->version == 4 && LooksPlainToOthers(body);
  return walk.mixed || LooksWantedToOthers(body, header->version) ||
         (header->version == 4 && !walk.clean && HoldsFramesToOthers(body.subspan(walk.end)));
}

bool PadTag(Bytes& tag, std::size_t extent) {
  if (extent <= tag.size()) return true;
  if (extent > kMaxSyncSafe + TagHeader::kSize) return false;
  const auto before = OutlineOf(BytesView(tag));
  if (!before || EndsInCutFrame(before->tail, before->tag.version)) return false;
  Bytes padded;
  padded.reserve(extent);
  padded = tag;
  padded.resize(extent, 0);
  WriteSize(padded);
  if (OutlineOf(BytesView(padded)) != before || IsAmbiguous(padded)) return false;
  tag = std::move(padded);
  return true;
}

Bytes FittedTag(const RawTag& tag, std::size_t present) {
  Bytes bytes = SerialiseTag(tag);
  const bool keeps_place = bytes.size() <= present && present - bytes.size() <= kMostPadding;
  PadTag(bytes, keeps_place ? present : bytes.size() + kNewPadding);
  if (IsAmbiguous(bytes)) throw Failure("other programs would see other frames in the tag");
  return bytes;
}

}  // namespace qublet

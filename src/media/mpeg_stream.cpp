#include "media/mpeg_stream.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "media/file_window.h"
#include "media/id3/raw_tag.h"
#include "media/mpeg_frame.h"
#include "media/tag_bounds.h"

namespace qublet {
namespace {

using ByteSpan = std::span<const std::uint8_t>;

constexpr int kHeaderLength = 4;
// How many bytes are looked at in search of the first frame, whole tags not counted. What stands before the audio of
// real files (padding, broken tags with a picture, a foreign head) is shorter; a file that is no MPEG audio at all
// costs no more than this.
constexpr std::int64_t kMostSearched = 1 << 20;

struct Frame {
  std::int64_t offset = 0;
  FrameHeader header;
  // The header of the frame behind, which has the rate of the audio where this one holds only the count of frames.
  FrameHeader next;

  std::int64_t End() const { return offset + header.Length(); }
};

// What an encoder wrote into the first frame about the whole stream; counts are 0 where it didn't.
struct StreamCount {
  bool present = false;
  bool variable = false;
  std::int64_t frames = 0;
  std::int64_t bytes = 0;
};

bool HasLetters(ByteSpan bytes, std::size_t offset, std::string_view letters) {
  return bytes.size() >= offset + letters.size() &&
         std::equal(letters.begin(), letters.end(), bytes.begin() + static_cast<std::ptrdiff_t>(offset));
}

std::int64_t BigEndian32(ByteSpan bytes, std::size_t offset) {
  if (bytes.size() < offset + 4) return 0;
  return static_cast<std::int64_t>(bytes[offset]) << 24 | bytes[offset + 1] << 16 | bytes[offset + 2] << 8 |
         bytes[offset + 3];
}

// Bytes of side information of a layer III frame, behind which the count begins.
std::size_t SideInformation(const FrameHeader& header) {
  const bool mono = header.mode == ChannelMode::kMono;
  if (header.version == MpegVersion::k1) return mono ? 17 : 32;
  return mono ? 9 : 17;
}

std::optional<StreamCount> XingCount(ByteSpan frame, std::size_t offset) {
  const bool variable = HasLetters(frame, offset, "Xing");
  if (!variable && !HasLetters(frame, offset, "Info")) return std::nullopt;
  const std::int64_t flags = BigEndian32(frame, offset + 4);
  const bool has_frames = (flags & 1) != 0;
  const bool has_bytes = (flags & 2) != 0;
  StreamCount count{true, variable};
  if (has_frames) count.frames = BigEndian32(frame, offset + 8);
  if (has_bytes) count.bytes = BigEndian32(frame, offset + (has_frames ? 12 : 8));
  return count;
}

StreamCount CountIn(ByteSpan frame, const FrameHeader& header) {
  if (header.layer != 3) return {};
  const std::size_t offset = kHeaderLength + SideInformation(header);
  if (const auto count = XingCount(frame, offset)) return *count;
  // Encoders disagree whether the two bytes of the check stand before the count.
  if (header.crc) {
    if (const auto count = XingCount(frame, offset + 2)) return *count;
  }
  constexpr std::size_t kVbri = kHeaderLength + 32;
  if (HasLetters(frame, kVbri, "VBRI")) {
    return {true, true, BigEndian32(frame, kVbri + 14), BigEndian32(frame, kVbri + 10)};
  }
  return {};
}

// Looks for the first frame of a file: the first header that another one of the same stream follows, or that is the
// only one.
class FrameSearch {
 public:
  FrameSearch(InputFile& file, FileWindow& window) : file_(file), window_(window) {}

  std::optional<Frame> Find() {
    std::int64_t offset = 0;
    for (std::int64_t searched = 0; searched < kMostSearched;) {
      const ByteSpan bytes = window_.From(offset, kId3v2HeadLength);
      if (bytes.size() < kHeaderLength) break;
      const std::int64_t tag = Id3v2Length(bytes);
      if (tag > 0 && tag <= window_.Size() - offset) {
        offset += HasClaimedFooter(offset, tag, bytes) ? tag : tag - kId3v2HeadLength;
        searched += kId3v2HeadLength;
        continue;
      }
      // The next place that can begin a frame or a tag; to be found before the window moves.
      const auto next =
          std::find_if(bytes.begin() + 1, bytes.end(), [](std::uint8_t b) { return b == 0xFF || b == 'I'; });
      const std::int64_t step = next - bytes.begin();
      if (const auto frame = FrameAt(offset, bytes)) return frame;
      offset += step;
      searched += step;
    }
    return std::nullopt;
  }

 private:
  // Some programs claim a footer that isn't there.
  bool HasClaimedFooter(std::int64_t offset, std::int64_t tag, ByteSpan head) {
    const auto header = ParseTagHeader(head);
    return !header->ClaimsFooter() || HasLetters(window_.From(offset + tag - kId3v2HeadLength, 3), 0, "3DI");
  }

  std::optional<Frame> FrameAt(std::int64_t offset, ByteSpan bytes) {
    const auto header = ParseFrameHeader(bytes);
    if (!header) return std::nullopt;
    const auto length = static_cast<std::size_t>(header->Length());
    const ByteSpan whole = window_.From(offset, length + kHeaderLength);
    if (whole.size() < length) {
      // The end of the file cuts it off; what counts is whether the count is there.
      if (!CountIn(whole, *header).frames) return std::nullopt;
      return Frame{offset, *header, *header};
    }
    if (const auto next = ParseFrameHeader(whole.subspan(length)); next && InOneStream(*header, *next)) {
      return Frame{offset, *header, *next};
    }
    if (offset + header->Length() != EndOfAudio()) return std::nullopt;
    return Frame{offset, *header, *header};
  }

  std::int64_t EndOfAudio() {
    if (!end_of_audio_) end_of_audio_ = AudioEnd(file_, 0);
    return *end_of_audio_;
  }

  InputFile& file_;
  FileWindow& window_;
  std::optional<std::int64_t> end_of_audio_;
};

// Bits a second, over the frames of the first 64 KiB from the second one on; 0 when there are none.
double AverageRate(FileWindow& window, const Frame& first) {
  constexpr std::int64_t kMostAveraged = 64 * 1024;
  double sum = 0;
  int frames = 0;
  for (std::int64_t at = first.End(); at < first.offset + kMostAveraged; ++frames) {
    const auto header = ParseFrameHeader(window.From(at, kHeaderLength));
    if (!header || !InOneStream(first.header, *header)) break;
    sum += 1000.0 * header->kilobits;
    at += header->Length();
  }
  return frames == 0 ? 0 : sum / frames;
}

void FillLengthAndRate(InputFile& file, FileWindow& window, const Frame& first, const StreamCount& count,
                       StreamFacts& facts) {
  const bool bytes_matter = count.variable || count.frames == 0;
  std::int64_t bytes = count.bytes;
  if (bytes == 0 && bytes_matter) bytes = AudioEnd(file, first.End()) - first.offset;
  const double bits = static_cast<double>(bytes) * 8;
  double rate = 1000.0 * (count.present ? first.next : first.header).kilobits;
  if (count.frames > 0) {
    const double samples = static_cast<double>(count.frames) * first.header.Samples();
    facts.StreamLength = samples / first.header.sample_rate;
    if (count.variable) rate = bits / facts.StreamLength;
  } else {
    if (count.variable) rate = AverageRate(window, first);
    if (rate == 0) rate = 1000.0 * first.header.kilobits;
    facts.StreamLength = bits / rate;
  }
  facts.StreamBitrate = std::to_string(std::llround(rate / 1000)) + (count.variable ? " Kbit (VBR)" : "");
}

template <typename Value, std::size_t Count>
std::string TextOf(Value value, const std::string_view (&texts)[Count]) {
  return std::string(texts[static_cast<std::size_t>(value)]);
}

void FillTexts(const FrameHeader& header, StreamFacts& facts) {
  static constexpr std::string_view kVersions[] = {"1.0", "2.0", "2.5"};
  static constexpr std::string_view kLayers[] = {"", "I", "II", "III"};
  static constexpr std::string_view kEmphases[] = {"None", "50/15", "Resvd", "CCITT"};
  static constexpr std::string_view kModes[] = {"Stereo", "Joint Stereo", "Dual Channel", "Mono"};
  facts.StreamVersion = TextOf(header.version, kVersions);
  facts.StreamLayer = TextOf(header.layer, kLayers);
  facts.StreamEmphasis = TextOf(header.emphasis, kEmphases);
  facts.StreamMode = TextOf(header.mode, kModes);
}

}  // namespace

std::optional<StreamFacts> FindStreamInfo(InputFile& file) {
  FileWindow window(file);
  const auto first = FrameSearch(file, window).Find();
  if (!first) return std::nullopt;
  const auto length = static_cast<std::size_t>(first->header.Length());
  const ByteSpan at_hand = window.From(first->offset, length);
  const ByteSpan frame = at_hand.first(std::min(at_hand.size(), length));

  StreamFacts facts;
  FillTexts(first->header, facts);
  FillLengthAndRate(file, window, *first, CountIn(frame, first->header), facts);
  facts.StreamSamplerate = first->header.sample_rate;
  facts.StreamCrc = first->header.crc;
  facts.StreamCopyrighted = first->header.copyrighted;
  facts.StreamOriginal = first->header.original;
  return facts;
}

StreamFacts ReadStreamInfo(InputFile& file) {
  auto facts = FindStreamInfo(file);
  if (!facts) throw Failure("no MPEG audio frame");
  return std::move(*facts);
}

}  // namespace qublet

#include <gtest/gtest.h>
#include <zlib.h>

#include "media/id3/id3v2_tag.h"
#include "media/id3/inflate.h"
#include "media/id3/unsynchronisation.h"
#include "support/tag_bytes.h"

namespace qublet {
namespace {

using namespace std::string_literals;

constexpr std::size_t kMiB = 1 << 20;

std::string Compressed(const std::string& bytes) {
  uLongf size = compressBound(static_cast<uLong>(bytes.size()));
  std::string out(size, '\0');
  EXPECT_EQ(compress(reinterpret_cast<Bytef*>(out.data()), &size, reinterpret_cast<const Bytef*>(bytes.data()),
                     static_cast<uLong>(bytes.size())),
            Z_OK);
  return out.substr(0, size);
}

RawFrame Frame(const std::string& id, std::uint16_t flags, const std::string& content) {
  return {id, flags, Bytes(content.begin(), content.end())};
}

// As the version stores it, with a group byte where one is wanted.
RawFrame CompressedFrame(int version, const std::string& id, const std::string& content, bool grouped = false) {
  const auto size = static_cast<std::uint32_t>(content.size());
  const std::string group = grouped ? "\x05" : "";
  if (version == 4) {
    return Frame(id, grouped ? 0x0049 : 0x0009, group + NumberBytes(size, 4, 7) + Compressed(content));
  }
  return Frame(id, grouped ? 0x00A0 : 0x0080, NumberBytes(size, 4) + group + Compressed(content));
}

// Its size is the first that it stores.
RawFrame ClaimingNothing(const RawFrame& frame) {
  return Frame(frame.id, frame.flags, std::string(4, '\0') + std::string(AsText(frame.content).substr(4)));
}

// The first bytes of its content; what is behind them is gone.
RawFrame CutOff(const RawFrame& frame, std::size_t length) {
  return Frame(frame.id, frame.flags, std::string(AsText(frame.content).substr(0, length)));
}

Id3v2Tag TagOf(std::vector<RawFrame> frames, int version) {
  RawTag raw;
  raw.version = version;
  raw.frames = std::move(frames);
  return Id3v2Tag(std::move(raw));
}

class CompressedFrames : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(Versions, CompressedFrames, testing::Values(3, 4));

TEST_P(CompressedFrames, AreShown) {
  const Id3v2Tag tag =
      TagOf({CompressedFrame(GetParam(), "TIT2", "\0Title"s), CompressedFrame(GetParam(), "TPE1", "\0Artist"s, true),
             CompressedFrame(GetParam(), "COMM", "\0eng\0said"s),
             CompressedFrame(GetParam(), "APIC", "\0image/png\0\3\0"s + std::string(2 * kMiB, 'x'))},
            GetParam());
  EXPECT_EQ(tag.Frame("TIT2"), "Title");
  EXPECT_EQ(tag.Frame("TPE1"), "Artist");
  EXPECT_EQ(tag.Comments(), (std::vector<TagComment>{{"", "said"}}));
  ASSERT_EQ(tag.Pictures().size(), 1u);
  EXPECT_EQ(tag.Pictures()[0].data.size(), 2 * kMiB);
}

TEST_P(CompressedFrames, KeepTheirBytesUntilTheirTextChanges) {
  const std::vector<RawFrame> frames = {CompressedFrame(GetParam(), "TIT2", "\0Title"s),
                                        CompressedFrame(GetParam(), "TPE1", "\0Artist"s)};
  Id3v2Tag tag = TagOf(frames, GetParam());
  tag.SetFrame("TIT2", "Title");
  EXPECT_EQ(tag.Raw().frames, frames);
  tag.SetFrame("TIT2", "New");
  EXPECT_EQ(tag.Raw().frames, (std::vector{Frame("TIT2", 0, "\0New"s), frames[1]}));
}

TEST_P(CompressedFrames, AreKeptButNotShownWhereTheyAreTooLongOrBroken) {
  const std::string most = "\0"s + std::string(kMiB - 1, 'a');
  EXPECT_EQ(TagOf({CompressedFrame(GetParam(), "TIT2", most)}, GetParam()).Frame("TIT2").size(), kMiB - 1);
  const RawFrame lying = CompressedFrame(GetParam(), "TIT2", most + "a");
  EXPECT_EQ(TagOf({lying}, GetParam()).Frame("TIT2"), "");
  EXPECT_EQ(TagOf({ClaimingNothing(lying)}, GetParam()).Frame("TIT2"), "");
  const RawFrame broken = CompressedFrame(GetParam(), "TIT2", "\0Title"s);
  for (const std::size_t length : {broken.content.size() - 1, std::size_t{2}})
    EXPECT_EQ(TagOf({CutOff(broken, length)}, GetParam()).Frame("TIT2"), "");
  EXPECT_EQ(TagOf({Frame("TIT2", GetParam() == 4 ? 0x0008 : 0x0080, "")}, GetParam()).Frame("TIT2"), "");
}

TEST_P(CompressedFrames, AreShownWhereTheyClaimLessThanTheyHold) {
  const RawFrame frame = CompressedFrame(GetParam(), "TIT2", "\0Title"s);
  EXPECT_EQ(TagOf({ClaimingNothing(frame)}, GetParam()).Frame("TIT2"), "Title");
}

TEST_P(CompressedFrames, AreNotShownWhereAllTogetherTakeTooMuch) {
  const RawFrame large = CompressedFrame(GetParam(), "TXXX", "\0d\0"s + std::string(kMiB - 10, 'a'));
  std::vector<RawFrame> frames(64, large);
  frames.push_back(CompressedFrame(GetParam(), "TIT2", "\0Title"s));
  frames.push_back(Frame("TPE1", 0, "\0Artist"s));
  const Id3v2Tag tag = TagOf(frames, GetParam());
  EXPECT_EQ(tag.Frame("TIT2"), "");
  EXPECT_EQ(tag.Frame("TPE1"), "Artist");
  EXPECT_EQ(tag.Raw().frames, frames);
}

TEST(CompressedFrames, AreUnsynchronisedLast) {
  const std::string content = "\0Title \xFF\xFB\xFF"s;
  const Bytes stored = Unsynchronise(AsBytes(NumberBytes(10, 4, 7) + Compressed(content)));
  EXPECT_EQ(TagOf({{"TIT2", 0x000B, stored}}, 4).Frame("TIT2"), "Title \u00FF\u00FB\u00FF");
}

TEST(Inflated, EndsAtTheMost) {
  const std::string bytes = Compressed(std::string(100'000, 'a'));
  EXPECT_EQ(Inflated(AsBytes(bytes), 100'000)->size(), 100'000u);
  EXPECT_FALSE(Inflated(AsBytes(bytes), 99'999).has_value());
  EXPECT_FALSE(Inflated({}, 100).has_value());
  EXPECT_EQ(Inflated(AsBytes(Compressed("")), 0)->size(), 0u);
}

}  // namespace
}  // namespace qublet

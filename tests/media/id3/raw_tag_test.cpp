#include "media/id3/raw_tag.h"

#include <gtest/gtest.h>

#include "platform/failure.h"
#include "support/tag_bytes.h"

namespace qublet {
namespace {

using namespace std::string_literals;

std::optional<RawTag> Parse(const std::string& tag) {
  const auto header = ParseTagHeader(AsBytes(tag));
  return header ? ParseTag(*header, AsBytes(tag).subspan(TagHeader::kSize)) : std::nullopt;
}

std::string Serialised(const RawTag& tag) {
  return std::string(AsText(SerialiseTag(tag)));
}

std::string ContentOf(const RawFrame& frame) {
  return std::string(AsText(frame.content));
}

// A frame with bytes of every kind in it, long enough for plain and sync-safe sizes to differ.
std::string LongText(std::size_t length) {
  std::string text(1, '\0');
  for (std::size_t i = 1; i < length; ++i) text += static_cast<char>('A' + i % 23);
  return text;
}

TEST(ParseTagHeader, WantsTheMarkAndSyncSafeSizes) {
  EXPECT_FALSE(ParseTagHeader(AsBytes("ID3\x03\0\0\0\0\0"s)).has_value());
  EXPECT_FALSE(ParseTagHeader(AsBytes("ID4\x03\0\0\0\0\0\0"s)).has_value());
  EXPECT_FALSE(ParseTagHeader(AsBytes("ID3\x03\0\0\x80\0\0\0"s)).has_value());
  EXPECT_FALSE(ParseTagHeader(AsBytes("ID3\xFF\0\0\0\0\0\0"s)).has_value());
  EXPECT_EQ(ParseTagHeader(AsBytes("ID3\x03\0\0\0\0\x02\x01"s))->Extent(), 267);
}

TEST(ParseTagHeader, CountsAFooterOnlyInTheVersionThatHasIt) {
  EXPECT_EQ(ParseTagHeader(AsBytes("ID3\x04\0\x10\0\0\0\x01"s))->Extent(), 21);
  EXPECT_EQ(ParseTagHeader(AsBytes("ID3\x03\0\x10\0\0\0\x01"s))->Extent(), 11);
}

TEST(ParseTag, ListsTheFramesOfEveryVersion) {
  for (const int version : {2, 3, 4}) {
    const std::string id = version == 2 ? "TT2" : "TIT2";
    const auto tag =
        Parse(TagBytes(version, TextFrameBytes(version, id, "a") +
                                    FrameBytes(version, version == 2 ? "XYZ" : "XYZ1", "bc") + "\0\0\0"s));
    ASSERT_TRUE(tag.has_value());
    ASSERT_EQ(tag->frames.size(), 2u);
    EXPECT_EQ(tag->version, version);
    EXPECT_EQ(tag->frames[0].id, id);
    EXPECT_EQ(ContentOf(tag->frames[0]), "\0a"s);
    EXPECT_EQ(ContentOf(tag->frames[1]), "bc");
    EXPECT_TRUE(tag->tail.empty());
  }
}

TEST(ParseTag, KnowsNothingOfOtherVersions) {
  EXPECT_FALSE(Parse(TagBytes(5, TextFrameBytes(4, "TIT2", "a"))).has_value());
  EXPECT_FALSE(Parse(TagBytes(1, TextFrameBytes(2, "TT2", "a"))).has_value());
  EXPECT_FALSE(Parse(TagBytes(2, TextFrameBytes(2, "TT2", "a"), 0x40)).has_value());
}

TEST(ParseTag, ReadsPlainSizesInATagThatShouldHaveSyncSafeOnes) {
  const std::string picture = LongText(5000);
  const std::string body = FrameBytes(3, "APIC", picture) + TextFrameBytes(3, "TIT2", "behind");
  const auto tag = Parse(TagBytes(4, body + std::string(100, '\0')));
  ASSERT_EQ(tag->frames.size(), 2u);
  EXPECT_EQ(ContentOf(tag->frames[0]), picture);
  EXPECT_EQ(tag->frames[1].id, "TIT2");
}

TEST(ParseTag, ReadsSyncSafeSizesInATagThatShouldHavePlainOnes) {
  const std::string picture = LongText(5000);
  const std::string body = FrameBytes(4, "APIC", picture) + TextFrameBytes(4, "TIT2", "behind");
  const auto tag = Parse(TagBytes(3, body));
  ASSERT_EQ(tag->frames.size(), 2u);
  EXPECT_EQ(ContentOf(tag->frames[0]), picture);
}

TEST(ParseTag, TakesTheRightSizesWhereBothWouldDo) {
  const std::string body = TextFrameBytes(4, "TIT2", "short") + FrameBytes(4, "TXXX", LongText(300));
  EXPECT_EQ(Parse(TagBytes(4, body))->frames[1].content.size(), 300u);
}

TEST(ParseTag, KeepsWhatIsNoFrameAsTheTail) {
  const std::string body = TextFrameBytes(3, "TIT2", "a") + "MP3ext V3.3.17" + std::string(20, '\0');
  const auto tag = Parse(TagBytes(3, body));
  EXPECT_EQ(tag->frames.size(), 1u);
  EXPECT_EQ(AsText(tag->tail), "MP3ext V3.3.17");
  EXPECT_EQ(Serialised(*tag), TagBytes(3, body.substr(0, body.size() - 20)));
}

TEST(ParseTag, KeepsAFrameThatRunsBeyondTheTag) {
  const std::string broken = "TPE1"s + NumberBytes(1000, 4) + "\0\0"s + "abc";
  const auto tag = Parse(TagBytes(3, TextFrameBytes(3, "TIT2", "a") + broken));
  EXPECT_EQ(tag->frames.size(), 1u);
  EXPECT_EQ(AsText(tag->tail), broken);
}

TEST(ParseTag, PassesOverEmptyFrames) {
  const auto tag = Parse(TagBytes(3, FrameBytes(3, "TPE1", "") + TextFrameBytes(3, "TIT2", "a")));
  ASSERT_EQ(tag->frames.size(), 2u);
  EXPECT_TRUE(tag->frames[0].content.empty());
}

TEST(ParseTag, SkipsAnExtendedHeader) {
  const std::string frame = TextFrameBytes(3, "TIT2", "a");
  const std::string small = NumberBytes(6, 4) + std::string(6, '\0');
  const std::string with_checksum = NumberBytes(10, 4) + "\x80\0\0\0\0\0\x12\x34\x56\x78"s;
  EXPECT_EQ(Parse(TagBytes(3, small + frame, 0x40))->frames.size(), 1u);
  EXPECT_EQ(Parse(TagBytes(3, with_checksum + frame, 0x40))->frames.size(), 1u);
  const std::string newer = NumberBytes(12, 4, 7) + "\x01\x20\x05\0\0\0\0\x01"s;
  EXPECT_EQ(Parse(TagBytes(4, newer + TextFrameBytes(4, "TIT2", "a"), 0x40))->frames.size(), 1u);
}

TEST(ParseTag, DoesNotMissFramesWhereTheExtendedHeaderIsOnlyClaimed) {
  EXPECT_EQ(Parse(TagBytes(3, TextFrameBytes(3, "TIT2", "a"), 0x40))->frames.size(), 1u);
}

TEST(ParseTag, SurvivesAnExtendedHeaderLongerThanTheTag) {
  EXPECT_TRUE(Parse(TagBytes(3, NumberBytes(0xFFFFFFFF, 4) + "abc", 0x40))->frames.empty());
}

TEST(ParseTag, UndoesUnsynchronisationOfTheWholeTag) {
  const std::string body = FrameBytes(3, "PRIV", "x\xFF\xFBz\xFF"s);
  const std::string stored = "PRIV\0\0\0\x05\0\0x\xFF\0\xFBz\xFF\0"s;
  const auto tag = Parse(TagBytes(3, stored, 0x80));
  ASSERT_EQ(tag->frames.size(), 1u);
  EXPECT_EQ(ContentOf(tag->frames[0]), "x\xFF\xFBz\xFF");
  EXPECT_EQ(Serialised(*tag), TagBytes(3, stored, 0x80));
}

TEST(ParseTag, DoesNotBelieveInUnsynchronisationThatWasNotDone) {
  const std::string body = FrameBytes(3, "PRIV", "x\xFF\xFBz\xFF\0q"s);
  const auto tag = Parse(TagBytes(3, body, 0x80));
  EXPECT_EQ(ContentOf(tag->frames[0]), "x\xFF\xFBz\xFF\0q"s);
  EXPECT_FALSE(tag->unsynchronised);
}

TEST(ParseTag, TakesIdsOfThreeLettersInLaterVersionsForFrames) {
  const auto tag = Parse(TagBytes(3, FrameBytes(3, "TT2\0"s, "abc") + TextFrameBytes(3, "TIT2", "a")));
  EXPECT_EQ(tag->frames.size(), 2u);
}

TEST(ParseTag, EndsAtTheBodyThatIsThere) {
  const auto header = ParseTagHeader(AsBytes("ID3\x03\0\0\x7F\x7F\x7F\x7F"s));
  EXPECT_TRUE(ParseTag(*header, {})->frames.empty());
  EXPECT_EQ(ParseTag(*header, AsBytes(TextFrameBytes(3, "TIT2", "a")))->frames.size(), 1u);
}

TEST(SerialiseTag, GivesBackTheBytesOfATag) {
  const std::string tag3 = TagBytes(3, FrameBytes(3, "RVAD", "abc", 0xC020) + TextFrameBytes(3, "TIT2", "a"));
  EXPECT_EQ(Serialised(*Parse(tag3)), tag3);
  const std::string tag4 =
      TagBytes(4, FrameBytes(4, "TMOO", "\0\xFF\0a"s, 0x4002) + FrameBytes(4, "APIC", LongText(999)), 0x80);
  EXPECT_EQ(Serialised(*Parse(tag4)), tag4);
}

TEST(SerialiseTag, RefusesATagThatWouldNotBeReadBackTheSame) {
  RawTag tag;
  tag.frames.push_back({"no", 0, {1}});
  EXPECT_THROW(SerialiseTag(tag), Failure);
  RawTag padding_in_the_middle;
  padding_in_the_middle.frames.push_back({"TIT2", 0, {0}});
  padding_in_the_middle.tail = {'T', 'P', 'E', '1', 0, 0, 0, 0, 0, 0, 'x'};
  EXPECT_THROW(SerialiseTag(padding_in_the_middle), Failure);
}

TEST(PadTag, FillsUpWithZerosAndSaysSoInTheHeader) {
  Bytes tag = SerialiseTag(*Parse(TagBytes(3, TextFrameBytes(3, "TIT2", "a"))));
  EXPECT_TRUE(PadTag(tag, 400));
  EXPECT_EQ(tag.size(), 400u);
  EXPECT_EQ(ParseTagHeader(tag)->Extent(), 400);
  EXPECT_EQ(Parse(std::string(AsText(tag)))->frames.size(), 1u);
  EXPECT_TRUE(PadTag(tag, 100));
  EXPECT_EQ(tag.size(), 400u);
}

TEST(PadTag, RefusesMoreThanTheSizeFieldHolds) {
  Bytes tag = SerialiseTag({});
  EXPECT_FALSE(PadTag(tag, std::size_t{1} << 28 | 11));
  EXPECT_EQ(tag.size(), TagHeader::kSize);
}

TEST(PadTag, DoesNotMakeABrokenFrameWhole) {
  const std::string broken = TagBytes(3, TextFrameBytes(3, "TIT2", "a") + "TPE1\0\0\0\x40\0\0\0abc"s);
  Bytes tag(broken.begin(), broken.end());
  EXPECT_FALSE(PadTag(tag, 400));
  EXPECT_EQ(AsText(tag), broken);
}

TEST(PlainContent, ResolvesTheFlagsOfTheVersion) {
  RawTag tag3;
  EXPECT_EQ(AsText(*PlainContent({"TIT2", 0x0020, {9, 0, 'a'}}, tag3)), "\0a"s);
  EXPECT_FALSE(PlainContent({"TIT2", 0x0080, {0, 'a'}}, tag3).has_value());
  EXPECT_FALSE(PlainContent({"TIT2", 0x0040, {0, 'a'}}, tag3).has_value());
  EXPECT_FALSE(PlainContent({"TIT2", 0x0020, {}}, tag3).has_value());

  RawTag tag4;
  tag4.version = 4;
  EXPECT_EQ(AsText(*PlainContent({"TIT2", 0x0041, {9, 0, 0, 0, 2, 0, 'a'}}, tag4)), "\0a"s);
  EXPECT_EQ(*PlainContent({"PRIV", 0x0002, {'a', 0xFF, 0, 0xFB}}, tag4), (Bytes{'a', 0xFF, 0xFB}));
  EXPECT_FALSE(PlainContent({"TIT2", 0x0008, {0, 'a'}}, tag4).has_value());
  EXPECT_FALSE(PlainContent({"TIT2", 0x0004, {0, 'a'}}, tag4).has_value());
}

TEST(PlainContent, BelievesTheTagWhereAFrameOfVersion4DoesNotSayThatItIsUnsynchronised) {
  RawTag tag;
  tag.version = 4;
  tag.unsynchronised = true;
  EXPECT_EQ(*PlainContent({"PRIV", 0, {'a', 0xFF, 0, 0xFB}}, tag), (Bytes{'a', 0xFF, 0xFB}));
  EXPECT_EQ(*PlainContent({"PRIV", 0, {0xFF, 0xFE, 0xFF, 0}}, tag), (Bytes{0xFF, 0xFE, 0xFF, 0}));
}

TEST(ReplaceContent, KeepsTheStatusAndNothingElse) {
  RawTag tag4;
  tag4.version = 4;
  RawFrame frame{"TIT2", 0x7043, {9, 0, 0, 0, 2, 0, 'a'}};
  ReplaceContent(frame, {0, 'b'}, tag4);
  EXPECT_EQ(frame, (RawFrame{"TIT2", 0x7000, {0, 'b'}}));

  RawFrame compressed{"TIT2", 0x00A0, {9, 1, 2, 3, 4}};
  ReplaceContent(compressed, {0, 'b'}, RawTag());
  EXPECT_EQ(compressed, (RawFrame{"TIT2", 0, {0, 'b'}}));
}

TEST(ReplaceContent, UnsynchronisesInAnUnsynchronisedTagOfVersion4) {
  RawTag tag;
  tag.version = 4;
  tag.unsynchronised = true;
  RawFrame frame{"TIT2", 0, {}};
  ReplaceContent(frame, {1, 0xFF, 0xFE}, tag);
  EXPECT_EQ(frame, (RawFrame{"TIT2", 0x0002, {1, 0xFF, 0, 0xFE}}));
  EXPECT_EQ(*PlainContent(frame, tag), (Bytes{1, 0xFF, 0xFE}));
}

}  // namespace
}  // namespace qublet

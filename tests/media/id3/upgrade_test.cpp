#include <gtest/gtest.h>

#include "media/id3/id3v2_tag.h"
#include "media/id3/raw_tag.h"
#include "support/tag_bytes.h"

namespace qublet {
namespace {

using namespace std::string_literals;

RawTag OldTag(std::vector<RawFrame> frames) {
  RawTag tag;
  tag.version = 2;
  tag.frames = std::move(frames);
  return tag;
}

Bytes BytesFrom(const std::string& text) {
  return Bytes(text.begin(), text.end());
}

TEST(Upgraded, LeavesLaterVersionsAlone) {
  RawTag tag;
  tag.version = 4;
  tag.unsynchronised = true;
  tag.frames.push_back({"CM1", 0, {1}});
  EXPECT_EQ(Upgraded(tag), tag);
}

TEST(Upgraded, GivesKnownFramesTheirNewIdsAndKeepsTheirBytes) {
  const RawTag tag =
      Upgraded(OldTag({{"TT2", 0, {0, 'a'}}, {"COM", 0, {0, 'e', 'n', 'g', 0, 'x'}}, {"RVA", 0, {7}}}));
  EXPECT_EQ(tag.version, 3);
  ASSERT_EQ(tag.frames.size(), 3u);
  EXPECT_EQ(tag.frames[0], (RawFrame{"TIT2", 0, {0, 'a'}}));
  EXPECT_EQ(tag.frames[1], (RawFrame{"COMM", 0, {0, 'e', 'n', 'g', 0, 'x'}}));
  EXPECT_EQ(tag.frames[2], (RawFrame{"RVAD", 0, {7}}));
}

TEST(Upgraded, GivesPicturesAMimeType) {
  const RawTag tag = Upgraded(OldTag({{"PIC", 0,
                                       BytesFrom("\0JPG\x03"
                                                 "cover\0data"s)},
                                      {"PIC", 0, BytesFrom("\0PNG\0\0more"s)},
                                      {"PIC", 0, BytesFrom("\0-->\0\0url"s)}}));
  EXPECT_EQ(AsText(tag.frames[0].content),
            "\0image/jpeg\0\x03"
            "cover\0data"s);
  const auto pictures = Id3v2Tag(tag).Pictures();
  ASSERT_EQ(pictures.size(), 3u);
  EXPECT_EQ(pictures[0].description, "cover");
  EXPECT_EQ(pictures[1].mime_type, "image/png");
  EXPECT_EQ(pictures[2].mime_type, "-->");
}

TEST(Upgraded, KeepsFramesThatTheNewVersionDoesNotKnowWhole) {
  const RawTag tag = Upgraded(OldTag({{"CM1", 0, {'a', 'b'}}}));
  ASSERT_EQ(tag.frames.size(), 1u);
  EXPECT_EQ(tag.frames[0].id, "PRIV");
  EXPECT_EQ(AsText(tag.frames[0].content),
            "QUBLET_id3v22frame\0CM1\0\0\x02"
            "ab"s);
}

TEST(Upgraded, NamesTheLinkedFrameByItsNewId) {
  const RawTag tag = Upgraded(OldTag({{"LNK", 0, BytesFrom("TT2http://x\0id"s)},
                                      {"LNK", 0, BytesFrom("XY1http://x\0id"s)},
                                      {"LNK", 0, BytesFrom("TT"s)}}));
  EXPECT_EQ(tag.frames[0], (RawFrame{"LINK", 0, BytesFrom("TIT2http://x\0id"s)}));
  EXPECT_EQ(tag.frames[1], (RawFrame{"LINK", 0, BytesFrom("XY1 http://x\0id"s)}));
  EXPECT_EQ(tag.frames[2], (RawFrame{"LINK", 0, BytesFrom("TT"s)}));
}

TEST(Upgraded, WrapsWhatStandsBehindTheFrames) {
  RawTag old = OldTag({{"TT2", 0, {0, 'a'}}});
  // Would be a frame in the newer version.
  old.tail = BytesFrom("TPE1\0\0\0\x02\0\0\0x!"s);
  const RawTag tag = Upgraded(old);
  EXPECT_TRUE(tag.tail.empty());
  ASSERT_EQ(tag.frames.size(), 2u);
  EXPECT_EQ(tag.frames[1], (RawFrame{"PRIV", 0, BytesFrom("QUBLET_id3v22tail\0TPE1\0\0\0\x02\0\0\0x!"s)}));
  EXPECT_EQ(Id3v2Tag(tag).Frame("TPE1"), "");
}

TEST(Upgraded, LetsACutFrameStayCutOff) {
  RawTag old = OldTag({{"TT2", 0, {0, 'a'}}});
  old.tail = BytesFrom("TP1\0\x01\0\0Artist\0\0"s);
  EXPECT_EQ(AsText(Upgraded(old).tail), "TPE1\0\0\x01\0\0\0\0Artist\0\0"s);
  old.tail = BytesFrom("PIC\0\x01\0\0PNG\x03\0data"s);
  EXPECT_EQ(AsText(Upgraded(old).tail), "APIC\0\0\x01\x07\0\0\0image/png\0\x03\0data"s);
  old.tail = BytesFrom("CM1\0\x01\0ab"s);
  EXPECT_EQ(Upgraded(old).frames[1].id, "PRIV");
}

TEST(Upgraded, KeepsAPictureThatIsTooShort) {
  EXPECT_EQ(Upgraded(OldTag({{"PIC", 0, {0, 'J'}}})).frames[0].id, "PRIV");
}

}  // namespace
}  // namespace qublet

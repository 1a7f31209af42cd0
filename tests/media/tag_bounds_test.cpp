#include "media/tag_bounds.h"

#include <gtest/gtest.h>

#include "support/mpeg_frames.h"

namespace qublet {
namespace {

const Bytes kAudio(5000, 0x55);

std::int64_t EndOf(const Bytes& content, std::int64_t first = 0) {
  MemoryFile file(content);
  return AudioEnd(file, first);
}

TEST(Id3v2Length, CountsHeadBodyAndFooter) {
  EXPECT_EQ(Id3v2Length(Id3v2TagOf(0)), 10);
  EXPECT_EQ(Id3v2Length(Id3v2TagOf(300)), 310);
  EXPECT_EQ(Id3v2Length(Bytes{'I', 'D', '3', 4, 0, 0x10, 0, 0, 2, 0x2C}), 320);
  EXPECT_EQ(Id3v2Length(Bytes{'I', 'D', '3', 2, 0, 0, 127, 127, 127, 127}), 268'435'465);
}

TEST(Id3v2Length, KnowsAFooterOnlyFromVersion4On) {
  EXPECT_EQ(Id3v2Length(Bytes{'I', 'D', '3', 3, 0, 0x10, 0, 0, 2, 0x2C}), 310);
}

TEST(Id3v2Length, IsZeroForBytesThatAreNoHead) {
  EXPECT_EQ(Id3v2Length({}), 0);
  EXPECT_EQ(Id3v2Length(BytesOf("ID3")), 0);
  EXPECT_EQ(Id3v2Length(BytesOf("TAGxxxxxxxxxxxx")), 0);
  EXPECT_EQ(Id3v2Length(Bytes{'I', 'D', '3', 0xFF, 0, 0, 0, 0, 0, 0}), 0);
  EXPECT_EQ(Id3v2Length(Bytes{'I', 'D', '3', 3, 0xFF, 0, 0, 0, 0, 0}), 0);
  EXPECT_EQ(Id3v2Length(Bytes{'I', 'D', '3', 3, 0, 0, 0, 0, 0x80, 0}), 0);
}

TEST(AudioEnd, IsTheSizeOfAFileWithoutTags) {
  EXPECT_EQ(EndOf(kAudio), 5000);
  EXPECT_EQ(EndOf({}), 0);
  EXPECT_EQ(EndOf(Bytes(7)), 7);
}

TEST(AudioEnd, LeavesOutEachKindOfTag) {
  EXPECT_EQ(EndOf(Joined({kAudio, Id3v1TagOf()})), 5000);
  EXPECT_EQ(EndOf(Joined({kAudio, ApeTag(400, true)})), 5000);
  EXPECT_EQ(EndOf(Joined({kAudio, ApeTag(400, false)})), 5000);
  EXPECT_EQ(EndOf(Joined({kAudio, LyricsTag(700)})), 5000);
  EXPECT_EQ(EndOf(Joined({kAudio, BytesOf("LYRICSBEGIN la la la LYRICSEND")})), 5000);
  EXPECT_EQ(EndOf(Joined({kAudio, Id3v2TagOf(300, 4), BytesOf("3DI"), {4, 0, 0x10}, SyncSafe(300)})), 5000);
}

TEST(AudioEnd, LeavesOutSeveralTagsInAnyOrder) {
  EXPECT_EQ(EndOf(Joined({kAudio, ApeTag(9000, true), LyricsTag(700), Id3v1TagOf()})), 5000);
  EXPECT_EQ(EndOf(Joined({kAudio, LyricsTag(6000), ApeTag(40, false), Id3v1TagOf()})), 5000);
  EXPECT_EQ(EndOf(Joined({kAudio, ApeTag(40, true), BytesOf("LYRICSBEGINlaLYRICSEND"), Id3v1TagOf()})), 5000);
}

TEST(AudioEnd, ReadsOnceForAFileWithoutTagsAndForOneWithId3v1) {
  MemoryFile plain(kAudio);
  AudioEnd(plain, 0);
  EXPECT_EQ(plain.Reads(), 1);
  EXPECT_EQ(plain.BytesRead(), 160u);

  MemoryFile tagged(Joined({kAudio, Id3v1TagOf()}));
  AudioEnd(tagged, 0);
  EXPECT_EQ(tagged.Reads(), 1);
}

TEST(AudioEnd, TakesATagForAudioThatClaimsMoreThanThereIs) {
  const Bytes footer = [] {
    Bytes tag = ApeTag(0, false);
    tag[15] = 0x7F;
    return tag;
  }();
  EXPECT_EQ(EndOf(Joined({kAudio, footer})), 5032);
  EXPECT_EQ(EndOf(Joined({kAudio, BytesOf("999999LYRICS200")})), 5015);
  EXPECT_EQ(EndOf(Joined({kAudio, ApeTag(400, false)}), 5001), 5432);
}

TEST(AudioEnd, TakesABrokenTagForAudio) {
  EXPECT_EQ(EndOf(Joined({kAudio, BytesOf("12x456LYRICS200")})), 5015);
  EXPECT_EQ(EndOf(Joined({kAudio, BytesOf("no begin LYRICSEND")})), 5018);
  EXPECT_EQ(EndOf(Joined({kAudio, BytesOf("3DI"), Bytes(7, 0xFF)})), 5010);
  EXPECT_EQ(EndOf(Joined({kAudio, Overwritten(ApeTag(0, false), 12, Bytes(4))})), 5032);
}

TEST(AudioEnd, GivesUpOnAHeapOfTags) {
  Bytes content = kAudio;
  for (int i = 0; i < 100; ++i) content = Joined({content, ApeTag(0, false)});
  MemoryFile file(content);
  EXPECT_GT(AudioEnd(file, 0), 5000);
  EXPECT_LT(file.Reads(), 20);
}

TEST(AudioEnd, FailsOnAnInputError) {
  MemoryFile file(kAudio);
  file.Fail();
  EXPECT_THROW(AudioEnd(file, 0), Failure);
}

}  // namespace
}  // namespace qublet

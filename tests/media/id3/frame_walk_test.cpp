#include "media/id3/frame_walk.h"

#include <gtest/gtest.h>

#include "media/id3/id3v2_tag.h"
#include "platform/failure.h"
#include "support/tag_bytes.h"

namespace qublet {
namespace {

using namespace std::string_literals;

RawTag Parsed(int version, const std::string& body) {
  const std::string tag = TagBytes(version, body);
  return *ParseTag(*ParseTagHeader(AsBytes(tag)), AsBytes(tag).subspan(TagHeader::kSize));
}

std::string TextAfter(RawTag tag, const std::string& id, const std::string& text) {
  Id3v2Tag edited(std::move(tag));
  edited.SetFrame(id, text);
  return std::string(AsText(SerialiseTag(edited.Raw())));
}

// Content without a zero in it.
std::string Data(std::size_t length) {
  std::string data;
  for (std::size_t i = 0; i < length; ++i) data += static_cast<char>(1 + i % 200);
  return data;
}

const std::string kJunk = "MP3ext V3.3.17(unicode)";
const std::string kTitle4 = TextFrameBytes(4, "TIT2", "Title");
const std::string kTitle3 = TextFrameBytes(3, "TIT2", "Title");
const std::string kPicture4 = FrameBytes(4, "APIC", Data(702));
// Id, size of 1000 bytes, flags, and 40 of these bytes.
const std::string kCut4 = "TPE1"s + NumberBytes(1000, 4, 7) + "\0\0"s + "\0"s + Data(39);
const std::string kCut3 = "TPE1"s + NumberBytes(1000, 4) + "\0\0"s + "\0"s + Data(39);

TEST(WalkFrames, KeepsTheSizesOfTheVersionWhateverStandsBehindTheFrames) {
  for (const std::string& behind : {kJunk, kJunk + std::string(900, '\0'), kJunk + std::string(5000, '\0'), kCut4,
                                    "x"s, "x"s + std::string(700, '\0'), "abcd\0\0\1\0\0\0zz"s,
                                    kJunk + std::string(617, '\0'), std::string(3000, 'x')}) {
    const RawTag tag = Parsed(4, kTitle4 + kPicture4 + behind);
    ASSERT_GE(tag.frames.size(), 2u);
    EXPECT_EQ(tag.frames[1].content.size(), 702u) << behind;
  }
}

TEST(WalkFrames, KeepsTheSizesOfTheVersionWhereACommentWouldSwallowItsNeighbours) {
  const std::string comment = FrameBytes(4, "COMM", "\0eng\0"s + Data(135));
  const RawTag tag =
      Parsed(4, comment + kTitle4 + TextFrameBytes(4, "TALB", "Album") + kJunk + std::string(300, '\0'));
  ASSERT_EQ(tag.frames.size(), 3u);
  EXPECT_EQ(tag.frames[0].content.size(), 140u);
}

TEST(WalkFrames, KeepsTheSizesOfTheVersionWhereTheOthersLeadIntoAContentThatLooksLikeFrames) {
  const std::string album = FrameBytes(4, "TALB", Data(387));  // 771 when the size is taken for a plain one
  std::string content = Data(771 - 387 - 10);
  for (int i = 0; i < 50; ++i) content += kTitle4;
  const RawTag tag = Parsed(4, album + FrameBytes(4, "XYZW", content) + kCut4);
  ASSERT_EQ(tag.frames.size(), 2u);
  EXPECT_EQ(tag.frames[0].content.size(), 387u);
}

TEST(WalkFrames, TakesPlainSizesInVersion4WhereTheyGiveMoreFramesOrTheExactEnd) {
  const std::string picture = FrameBytes(3, "APIC", Data(1342));
  EXPECT_EQ(Parsed(4, kTitle3 + picture + kTitle3 + kJunk).frames[1].content.size(), 1342u);
  EXPECT_EQ(Parsed(4, kTitle3 + picture).frames[1].content.size(), 1342u);
  EXPECT_EQ(Parsed(4, kTitle3 + picture + std::string(2000, '\0')).frames[1].content.size(), 1342u);
}

TEST(WalkFrames, TakesSyncSafeSizesInVersion3OnlyForACleanEnd) {
  const std::string body = kPicture4 + kTitle3;
  EXPECT_EQ(Parsed(3, body + std::string(50, '\0')).frames[0].content.size(), 702u);
  EXPECT_TRUE(Parsed(3, body + kJunk).frames.empty());
}

TEST(WalkFrames, KeepsAFrameThatTheEndOfTheTagCutsOffToItsLastZero) {
  for (const int version : {3, 4}) {
    const std::string cut = (version == 4 ? kCut4 : kCut3) + std::string(30, '\0');
    const std::string title = version == 4 ? kTitle4 : kTitle3;
    const RawTag tag = Parsed(version, title + cut);
    EXPECT_EQ(AsText(tag.tail), cut);
    EXPECT_TRUE(TextAfter(tag, "TIT2", "Another").ends_with(cut));
    EXPECT_TRUE(TextAfter(tag, "TALB", "Album").ends_with(title + cut));
    Bytes bytes = SerialiseTag(tag);
    EXPECT_FALSE(PadTag(bytes, 3000));
    EXPECT_TRUE(AsText(bytes).ends_with(cut));
  }
}

TEST(WalkFrames, KeepsACutFrameOfPlainSizeInVersion4) {
  const std::string cut = "APIC"s + NumberBytes(413, 4) + "\0\0"s + Data(300) + std::string(5, '\0');
  const RawTag tag = Parsed(4, kTitle4 + cut);
  EXPECT_EQ(AsText(tag.tail), cut);
  EXPECT_TRUE(AsText(FittedTag(tag, 2000)).ends_with(cut));
}

TEST(WalkFrames, GoesOnBehindAnOddIdWhereTheEndIsClean) {
  for (const std::string& id : {"tit2"s, "T-T2"s, "\xFF\x01xy"s, "ab\0\0"s, "\0PE1"s}) {
    for (const std::string& behind : {""s, std::string(40, '\0')}) {
      const std::string body = kTitle3 + FrameBytes(3, id, "odd") + TextFrameBytes(3, "TPE1", "Artist");
      const RawTag tag = Parsed(3, body + behind);
      ASSERT_EQ(tag.frames.size(), 3u) << id;
      EXPECT_EQ(tag.frames[1].id, id);
      EXPECT_EQ(Id3v2Tag(tag).Frame("TPE1"), "Artist");
      EXPECT_EQ(AsText(SerialiseTag(tag)), TagBytes(3, body));
    }
  }
  const RawTag old = Parsed(2, FrameBytes(2, "t-t", "odd") + TextFrameBytes(2, "TP1", "Artist"));
  EXPECT_EQ(Id3v2Tag(old).Frame("TPE1"), "Artist");
}

TEST(WalkFrames, GoesOnByTheOwnFormOfSizesWhereTheOtherEnds) {
  const std::string body = TextFrameBytes(3, "TALB", Data(200)) + kTitle3 + FrameBytes(4, "????", Data(200));
  const RawTag tag = Parsed(4, body);
  ASSERT_EQ(tag.frames.size(), 3u);
  EXPECT_EQ(tag.frames[0].content.size(), 201u);
  EXPECT_EQ(tag.frames[2].content.size(), 200u);
  EXPECT_NO_THROW(SerialiseTag(tag));
}

TEST(WalkFrames, StopsAtAnOddIdThatLeadsNowhere) {
  const std::string behind = FrameBytes(3, "tit2", "odd") + TextFrameBytes(3, "TPE1", "Artist") + "x";
  const RawTag tag = Parsed(3, kTitle3 + behind);
  EXPECT_EQ(tag.frames.size(), 1u);
  EXPECT_EQ(AsText(tag.tail), behind);
}

TEST(WalkFrames, KeepsACutFrameBehindAnOddOne) {
  const std::string behind = FrameBytes(3, "tit2", "odd") + kCut3 + std::string(9, '\0');
  EXPECT_EQ(AsText(Parsed(3, kTitle3 + behind).tail), behind);
}

TEST(NewFrames, StandInFrontOfWhatOtherProgramsStopAt) {
  const std::string odd = FrameBytes(3, "tit2", "odd");
  EXPECT_EQ(TextAfter(Parsed(3, kTitle3 + odd), "TALB", "Album"),
            TagBytes(3, kTitle3 + TextFrameBytes(3, "TALB", "Album") + odd));
  Id3v2Tag tag(Parsed(3, kTitle3 + odd));
  tag.SetComments({{"", "said"}});
  EXPECT_EQ(tag.Raw().frames[1].id, "COMM");
}

// Where the tail begins is a guess; the bytes of the frame in front of it and its own stay in a row.
TEST(NewFrames, DoNotPartTheLastFrameFromWhatStandsBehindIt) {
  const std::string end = kPicture4 + kJunk;
  EXPECT_EQ(TextAfter(Parsed(4, kTitle4 + end), "TALB", "Album"),
            TagBytes(4, kTitle4 + TextFrameBytes(4, "TALB", "Album") + end));
  EXPECT_EQ(TextAfter(Parsed(4, kJunk), "TALB", "Album"), TagBytes(4, TextFrameBytes(4, "TALB", "Album") + kJunk));
}

TEST(PadTag, AddsNothingThatMakesOtherProgramsTakeTheSizesForPlain) {
  // With zeros behind the junk the picture could as well be 1342 bytes long.
  const std::string tag = TagBytes(4, kTitle4 + kPicture4 + kJunk);
  Bytes bytes(tag.begin(), tag.end());
  EXPECT_FALSE(IsAmbiguous(bytes));
  EXPECT_FALSE(PadTag(bytes, 4000));
  EXPECT_EQ(AsText(bytes), tag);
  EXPECT_TRUE(IsAmbiguous(AsBytes(TagBytes(4, kTitle4 + kPicture4 + kJunk + std::string(3000, '\0')))));
}

TEST(IsAmbiguous, IsNoTagOfAnotherKind) {
  EXPECT_FALSE(IsAmbiguous(AsBytes(TagBytes(4, kTitle4 + kPicture4 + std::string(3000, '\0')))));
  EXPECT_FALSE(
      IsAmbiguous(AsBytes(TagBytes(3, kTitle3 + FrameBytes(3, "APIC", Data(702)) + std::string(3000, '\0')))));
  EXPECT_FALSE(IsAmbiguous({}));
}

// A frame with an odd id, of 797 bytes by a plain size and of 413 by a sync-safe one.
const std::string kOddFrame = "ePIC"s + NumberBytes(797, 4) + "\0\0"s + Data(413);
const std::string kTwoArtists = TextFrameBytes(4, "TPE1", "one") + TextFrameBytes(4, "TPE2", "two");

TEST(IsReadOtherwise, IsATagWhosePlainSizesHideFramesFromUsThatOthersSee) {
  const std::string hidden = kTwoArtists + Data(797 - 413 - kTwoArtists.size());
  const std::string tag = TagBytes(4, kTitle4 + kOddFrame + hidden);
  ASSERT_EQ(Parsed(4, kTitle4 + kOddFrame + hidden).frames.size(), 2u);
  EXPECT_TRUE(IsReadOtherwise(AsBytes(tag)));
}

TEST(IsReadOtherwise, IsATagWhoseSyncSafeSizesHideFramesFromUsThatOthersSee) {
  const std::string seen = Data(797 - 413 - 10) + kTwoArtists + Data(100 - kTwoArtists.size());
  const std::string body = kTitle3 + kOddFrame + FrameBytes(4, "odd.", seen);
  ASSERT_EQ(Parsed(3, body).frames.size(), 3u);
  EXPECT_TRUE(IsReadOtherwise(AsBytes(TagBytes(3, body))));
}

TEST(IsReadOtherwise, IsNoTagWithTheSizesOfAnotherVersionThroughout) {
  const std::string mistaken = FrameBytes(3, "APIC", Data(702)) + TextFrameBytes(3, "TALB", "Album");
  EXPECT_FALSE(IsReadOtherwise(AsBytes(TagBytes(4, kTitle4 + mistaken))));
  EXPECT_FALSE(IsReadOtherwise(AsBytes(TagBytes(3, kTitle3 + kPicture4 + TextFrameBytes(4, "TALB", "Album")))));
}

TEST(IsAmbiguous, IsATagWhereAProgramThatLooksForTheNextIdFindsItAtThePlainSize) {
  std::string behind = "x" + std::string(639, 'y');
  const std::string next = TextFrameBytes(4, "TPE1", "x");
  EXPECT_TRUE(IsAmbiguous(AsBytes(TagBytes(4, kPicture4 + behind + next))));
}

}  // namespace
}  // namespace qublet

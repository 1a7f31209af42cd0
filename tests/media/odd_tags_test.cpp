// Tags that stand where no tag should, claim what isn't so, or are shorter than they should be.

#include <gtest/gtest.h>

#include "media/file_ends.h"
#include "media/tag_object.h"
#include "support/ordinary_user.h"
#include "support/song_tags_test_base.h"
#include "support/tag_bytes.h"

namespace qublet {
namespace {

using namespace std::string_literals;

class OddTagsTest : public SongTagsTest {};

const std::string kTag = TagBytes(3, TextFrameBytes(3, "TIT2", "Title") + TextFrameBytes(3, "TPE1", "Artist"));

// An APE tag with header and footer, and 20 bytes of items.
std::string ApeBytes() {
  const std::string middle = "\xD0\x07\0\0\x34\0\0\0\1\0\0\0"s;
  return "APETAGEX" + middle + "\0\0\0\xA0"s + std::string(8, '\0') +
         "\x0B\0\0\0\0\0\0\0T\0APE title.."s.substr(0, 20) + "APETAGEX" + middle + "\0\0\0\x80"s +
         std::string(8, '\0');
}

class TagBehindOtherBytesTest : public OddTagsTest, public testing::WithParamInterface<std::string> {};

TEST_P(TagBehindOtherBytesTest, IsShownAndWrittenWhereItStands) {
  const std::string& front = GetParam();
  const std::string rest = AudioBytes() + Id3v1Bytes("Old");
  Write(front + kTag + rest);
  TagObject tag = Loaded();
  EXPECT_TRUE(tag.HasID3v2());
  EXPECT_EQ(tag.Frame("TIT2"), "Title");
  tag.WriteID3v2(kSong);
  EXPECT_EQ(Content(), front + kTag + rest);
  tag.SetFrame("TIT2", "A title that is a good deal longer");
  tag.WriteID3v2(kSong);
  EXPECT_TRUE(Content().starts_with(front + "ID3\x03"));
  EXPECT_TRUE(Content().ends_with(rest));
  EXPECT_EQ(Loaded().Frame("TIT2"), "A title that is a good deal longer");
  EXPECT_EQ(Loaded().Frame("TPE1"), "Artist");
  tag.RemoveID3v2(kSong);
  EXPECT_EQ(Content(), front + rest);
}

INSTANTIATE_TEST_SUITE_P(Fronts, TagBehindOtherBytesTest,
                         testing::Values(std::string(1, '\0'), std::string(64 * 1024, '\0'), "garbage"s,
                                         "xID3 is no header, ID3\xFF\0\0\0\0\0\0 neither"s, "\xFF\xFB\x90 no frame"s,
                                         std::string(5000, 'I'), ApeBytes(), ApeBytes() + std::string(300, '\0')));

TEST_F(OddTagsTest, IsLookedForInTheFirst64KiBInFrontOfTheAudioOnly) {
  Write(std::string(64 * 1024 + 1, '\0') + kTag + AudioBytes());
  EXPECT_FALSE(Loaded().HasID3v2());
  Write(AudioBytes() + kTag + AudioBytes());
  EXPECT_FALSE(Loaded().HasID3v2());
  Write("garbage" + AudioBytes() + kTag + AudioBytes());
  EXPECT_FALSE(Loaded().HasID3v2());
}

TEST_F(OddTagsTest, GetsNoSecondTagInFrontOfOneThatStandsTooFarBehindOtherBytes) {
  const std::string song = std::string(64 * 1024 + 1, '\0') + kTag + AudioBytes();
  Write(song);
  TagObject tag = Loaded();
  tag.SetFrame("TIT2", "New");
  try {
    tag.WriteID3v2(kSong);
    ADD_FAILURE() << "written";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Reason(), "its tag stands too far behind the start of the file");
  }
  EXPECT_EQ(Content(), song);
  Write(std::string(64 * 1024 + 1, '\0') + AudioBytes());
  EXPECT_NO_THROW(tag.WriteID3v2(kSong));
}

TEST_F(OddTagsTest, IsNotWrittenWhereATagBehindOtherBytesClaimsMoreThanTheFile) {
  const std::string file = "garbage" + kTag;
  Write(file.substr(0, file.size() - 3));
  TagObject tag = Loaded();
  EXPECT_EQ(tag.Frame("TIT2"), "Title");
  tag.SetFrame("TIT2", "New");
  EXPECT_THROW(tag.WriteID3v2(kSong), Failure);
  EXPECT_THROW(tag.RemoveID3v2(kSong), Failure);
  EXPECT_EQ(Content(), file.substr(0, file.size() - 3));
}

TEST_F(OddTagsTest, IsChangedInPlaceBehindOtherBytes) {
  const std::string padded = TagBytes(3, TextFrameBytes(3, "TIT2", "Title") + std::string(100, '\0'));
  Write("garbage" + padded + AudioBytes());
  OrdinaryUser user(drives_.Root());
  std::filesystem::permissions(drives_.C(), std::filesystem::perms(0555));
  TagObject tag = Loaded();
  tag.SetFrame("TIT2", "A longer title");
  tag.WriteID3v2(kSong);
  std::filesystem::permissions(drives_.C(), std::filesystem::perms(0755));
  EXPECT_EQ(Content(), "garbage" +
                           TagBytes(3, Padded(TextFrameBytes(3, "TIT2", "A longer title"), padded.size() - 10)) +
                           AudioBytes());
}

TEST_F(OddTagsTest, EatNoAudioWhereAFooterIsOnlyClaimed) {
  const std::string frame = TextFrameBytes(4, "TIT2", "Title");
  Write(TagBytes(4, frame, 0x10) + AudioBytes());
  TagObject tag = Loaded();
  tag.SetFrame("TIT2", "New");
  tag.WriteID3v2(kSong);
  EXPECT_TRUE(Content().ends_with(AudioBytes()));
  tag.RemoveID3v2(kSong);
  EXPECT_EQ(Content(), AudioBytes());
  const std::string size = NumberBytes(static_cast<std::uint32_t>(frame.size()), 4, 7);
  Write(TagBytes(4, frame, 0x10) + "3DI\4\0\x10"s + size + AudioBytes());
  tag.RemoveID3v2(kSong);
  EXPECT_EQ(Content(), AudioBytes());
}

TEST_F(OddTagsTest, GetsNoId3v1BehindATagThatClaimsMoreThanTheFile) {
  const std::string overrun = "ID3\x03\0\0\0\0\x0A\0"s + TextFrameBytes(3, "TIT2", "Title") + AudioBytes(2);
  ASSERT_LT(overrun.size(), 1290u);
  for (const std::string& end : {""s, Id3v1Bytes("Old")}) {
    Write(overrun + end);
    TagObject tag = Loaded();
    tag.SetV1Title("New");
    try {
      tag.WriteID3v1(kSong);
      ADD_FAILURE() << "written";
    } catch (const Failure& failure) {
      EXPECT_STREQ(failure.what(), "the tag claims more than the file holds");
    }
    EXPECT_EQ(Content(), overrun + end);
  }
  TagObject tag = Loaded();
  EXPECT_THROW(tag.RemoveID3v1(kSong), Failure);
  Write(overrun);
  EXPECT_NO_THROW(tag.RemoveID3v1(kSong));
  EXPECT_EQ(Content(), overrun);
}

// Without the zeros that a year of less than four digits is filled up with.
std::string ShortId3v1Bytes(const std::string& year) {
  const std::string whole = Id3v1Bytes("Title", "Artist", "Album", year, "Comment", 17);
  return whole.substr(0, 93 + year.size()) + whole.substr(97);
}

TEST_F(OddTagsTest, AreReadWhereTheYearOfAnId3v1TagIsTooShort) {
  for (const std::string& year : {""s, "1"s, "19"s, "199"s}) {
    Write(AudioBytes() + ShortId3v1Bytes(year));
    TagObject tag = Loaded();
    ASSERT_TRUE(tag.HasID3v1()) << year;
    EXPECT_EQ(tag.V1Title(), "Title");
    EXPECT_EQ(tag.V1Year(), year);
    EXPECT_EQ(tag.V1Comment(), "Comment");
    EXPECT_EQ(tag.V1Genre(), 17);
    tag.WriteID3v1(kSong);
    EXPECT_EQ(Content(), AudioBytes() + ShortId3v1Bytes(year));
    tag.SetV1Title("New");
    tag.WriteID3v1(kSong);
    EXPECT_EQ(Content(), AudioBytes() + Id3v1Bytes("New", "Artist", "Album", year, "Comment", 17));
    Write(AudioBytes() + ShortId3v1Bytes(year));
    tag.RemoveID3v1(kSong);
    EXPECT_EQ(Content(), AudioBytes());
  }
}

TEST_F(OddTagsTest, AreNoId3v1TagsWhereShortOnesLookLikeAudio) {
  Write(AudioBytes() + "TAG" + std::string(122, 'x'));
  EXPECT_FALSE(Loaded().HasID3v1());
}

TEST_F(OddTagsTest, AreRefusedWhereOtherProgramsWouldSeeOtherFrames) {
  // A program that looks for the next id finds one at 1342 bytes, and none at 702.
  const std::string picture = FrameBytes(4, "APIC", std::string(702, 'x'));
  const std::string file =
      TagBytes(4, TextFrameBytes(4, "TIT2", "Title") + picture + std::string(640, 'y') + "TPE1\0\0\7\0\0\0cut off"s) +
      AudioBytes();
  Write(file);
  TagObject tag = Loaded();
  tag.SetFrame("TIT2", "New");
  EXPECT_THROW(tag.WriteID3v2(kSong), Failure);
  EXPECT_EQ(Content(), file);
}

}  // namespace
}  // namespace qublet

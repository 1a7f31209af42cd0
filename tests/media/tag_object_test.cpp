#include "media/tag_object.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/song_tags_test_base.h"
#include "support/tag_bytes.h"

namespace qublet {
namespace {

using namespace std::string_literals;

class TagObjectTest : public SongTagsTest {};

const std::string kTag3 = TagBytes(3, TextFrameBytes(3, "TIT2", "Title") + TextFrameBytes(3, "TPE1", "Artist"));
const std::string kTag4 = TagBytes(4, TextFrameBytes(4, "TIT2", "Title") + TextFrameBytes(4, "TDRC", "1999-05-03"));
const std::string kApe = "APETAGEX any bytes that stand for an APE tag";

TEST_F(TagObjectTest, LoadsBothTagsAndTheStream) {
  Write(kTag3 + AudioBytes() + Id3v1Bytes("Old title"));
  TagObject tag(*files_);
  tag.ReadTags(kSong, true);
  EXPECT_TRUE(tag.HasID3v1());
  EXPECT_TRUE(tag.HasID3v2());
  EXPECT_EQ(tag.V1Title(), "Old title");
  EXPECT_EQ(tag.Frame("TIT2"), "Title");
  EXPECT_EQ(tag.Stream().StreamVersion, "1.0");
  EXPECT_EQ(tag.Stream().StreamBitrate, "128");
}

TEST_F(TagObjectTest, LoadsOnlyWhatItIsAskedFor) {
  Write(kTag3 + AudioBytes() + Id3v1Bytes("Old title"));
  TagObject first(*files_);
  first.ReadID3v1(kSong);
  EXPECT_TRUE(first.HasID3v1());
  EXPECT_FALSE(first.HasID3v2());
  TagObject second(*files_);
  second.ReadID3v2(kSong);
  EXPECT_FALSE(second.HasID3v1());
  EXPECT_TRUE(second.HasID3v2());
  second.ReadStreamInfo(kSong);
  EXPECT_EQ(second.Stream().StreamLayer, "III");
}

TEST_F(TagObjectTest, IsEmptyForAFileWithoutTags) {
  Write(AudioBytes());
  const TagObject tag = Loaded();
  EXPECT_FALSE(tag.HasID3v1());
  EXPECT_FALSE(tag.HasID3v2());
  EXPECT_EQ(tag.Frame("TIT2"), "");
  EXPECT_EQ(tag.V1Genre(), 255);
  EXPECT_EQ(tag.Comments().Count(), 0u);
}

TEST_F(TagObjectTest, ForgetsTheFileBeforeWhenItLoadsAnother) {
  Write(TagBytes(3, CommentBytes(3, "eng", "a", "b")) + AudioBytes() + Id3v1Bytes("Old"));
  TagObject tag = Loaded();
  Write(AudioBytes());
  tag.ReadTags(kSong, false);
  EXPECT_FALSE(tag.HasID3v1());
  EXPECT_FALSE(tag.HasID3v2());
  EXPECT_EQ(tag.V1Title(), "");
  EXPECT_EQ(tag.Comments().Count(), 0u);
}

TEST_F(TagObjectTest, ForgetsTheFileBeforeAlsoWhenItCannotLoadAnother) {
  Write(kTag3 + AudioBytes() + Id3v1Bytes("Old"));
  TagObject tag = Loaded();
  EXPECT_THROW(tag.ReadTags("c:\\missing.mp3", false), Failure);
  EXPECT_FALSE(tag.HasID3v1() || tag.HasID3v2());
  EXPECT_EQ(tag.V1Title() + tag.Frame("TIT2"), "");
}

TEST_F(TagObjectTest, FailsForWhatIsNoFile) {
  TagObject tag(*files_);
  EXPECT_THROW(tag.ReadTags("c:\\missing.mp3", false), Failure);
  EXPECT_THROW(tag.ReadID3v1("c:\\"), Failure);
  EXPECT_THROW(tag.WriteID3v2("c:\\missing.mp3"), Failure);
}

TEST_F(TagObjectTest, GivesTheTagsOfAFileWithoutAFrameAndNoStream) {
  Write(kTag3 + AudioBytes());
  TagObject tag(*files_);
  tag.ReadTags(kSong, true);
  EXPECT_EQ(tag.Stream().StreamVersion, "1.0");
  Write(kTag3 + std::string(5000, 'x'));
  tag.ReadTags(kSong, true);
  EXPECT_EQ(tag.Frame("TIT2"), "Title");
  EXPECT_EQ(tag.Stream().StreamVersion, "");
  EXPECT_EQ(tag.Stream().StreamLength, 0);
  EXPECT_THROW(tag.ReadStreamInfo(kSong), Failure);
}

TEST_F(TagObjectTest, ForgetsTheStreamOfTheFileBefore) {
  Write(kTag3 + AudioBytes());
  TagObject tag(*files_);
  for (const char* next : {kSong, "c:\\missing.mp3"}) {
    tag.ReadTags(kSong, true);
    ResumeNext([&] { tag.ReadTags(next, false); });
    EXPECT_EQ(tag.Stream().StreamVersion, "");
  }
}

TEST_F(TagObjectTest, LeavesAFileWithTheSameTagsAlone) {
  Write(kTag3 + AudioBytes() + Id3v1Bytes("Old title"));
  const auto before = std::filesystem::last_write_time(drives_.C() / "song.mp3") - std::chrono::hours(1);
  std::filesystem::last_write_time(drives_.C() / "song.mp3", before);
  TagObject tag = Loaded();
  tag.WriteID3v1(kSong);
  tag.WriteID3v2(kSong);
  EXPECT_EQ(std::filesystem::last_write_time(drives_.C() / "song.mp3"), before);
}

TEST_F(TagObjectTest, LeavesRoomForTheNextChangeAndUsesIt) {
  Write(kTag3 + AudioBytes());
  TagObject tag = Loaded();
  tag.SetFrame("TIT2", "A longer title");
  tag.WriteID3v2(kSong);
  const std::size_t size = Content().size();
  EXPECT_GT(size, (kTag3 + AudioBytes()).size() + 1000);
  EXPECT_TRUE(Content().ends_with(AudioBytes()));
  tag.SetFrame("TALB", "An album");
  tag.WriteID3v2(kSong);
  EXPECT_EQ(Content().size(), size);
  EXPECT_EQ(Loaded().Frame("TALB"), "An album");
}

TEST_F(TagObjectTest, GivesTheRoomOfALargePictureBack) {
  drives_.Write("cover.bmp", "BM" + std::string(300000, 'x'));
  Write(kTag3 + AudioBytes());
  TagObject tag = Loaded();
  tag.Images().Add("c:\\cover.bmp", "Cover");
  tag.WriteID3v2(kSong);
  EXPECT_GT(Content().size(), 300000u);
  tag.Images().Clear();
  tag.WriteID3v2(kSong);
  EXPECT_LT(Content().size(), 10000u);
}

TEST_F(TagObjectTest, WritesTheVersionThatTheFileHas) {
  for (const auto& [head, version] : {std::pair{kTag4, 4}, {kTag3, 3}, {""s, 3}}) {
    Write(head + AudioBytes());
    TagObject tag = Loaded();
    tag.SetFrame("TALB", "Album");
    tag.WriteID3v2(kSong);
    EXPECT_EQ(Content()[3], version);
  }
  Write(TagBytes(2, TextFrameBytes(2, "TT2", "Title")) + AudioBytes());
  TagObject tag = Loaded();
  tag.SetFrame("TALB", "Album");
  tag.WriteID3v2(kSong);
  EXPECT_EQ(Content()[3], 3);
  EXPECT_EQ(Loaded().Frame("TIT2"), "Title");
}

TEST_F(TagObjectTest, KeepsWhateverElseTheFileHolds) {
  const std::string other = AudioBytes() + kApe + "LYRICSBEGIN text 000011LYRICS200";
  Write(kTag3 + other + Id3v1Bytes("Old"));
  TagObject tag = Loaded();
  tag.SetFrame("TIT2", "New");
  tag.SetV1Title("New");
  tag.WriteID3v2(kSong);
  tag.WriteID3v1(kSong);
  EXPECT_TRUE(Content().ends_with(other + Id3v1Bytes("New")));
  tag.RemoveID3v2(kSong);
  EXPECT_EQ(Content(), other + Id3v1Bytes("New"));
  tag.RemoveID3v1(kSong);
  EXPECT_EQ(Content(), other);
  tag.WriteID3v1(kSong);
  EXPECT_EQ(Content(), other + Id3v1Bytes("New"));
}

TEST_F(TagObjectTest, RemovesOnlyTagsThatAreThere) {
  Write(AudioBytes());
  TagObject tag(*files_);
  tag.RemoveID3v1(kSong);
  tag.RemoveID3v2(kSong);
  EXPECT_EQ(Content(), AudioBytes());
}

TEST_F(TagObjectTest, RemovesAllTagsInARowButChangesOnlyTheFirst) {
  const std::string second = TagBytes(4, TextFrameBytes(4, "TIT2", "Second"));
  Write(kTag3 + second + AudioBytes());
  TagObject tag = Loaded();
  EXPECT_EQ(tag.Frame("TIT2"), "Title");
  tag.SetFrame("TIT2", "New");
  tag.WriteID3v2(kSong);
  EXPECT_TRUE(Content().ends_with(second + AudioBytes()));
  tag.RemoveID3v2(kSong);
  EXPECT_EQ(Content(), AudioBytes());
}

TEST_F(TagObjectTest, AlwaysLeavesATag) {
  Write(AudioBytes());
  TagObject tag = Loaded();
  tag.WriteID3v1(kSong);
  tag.WriteID3v2(kSong);
  EXPECT_TRUE(Loaded().HasID3v1());
  EXPECT_TRUE(Loaded().HasID3v2());
  EXPECT_TRUE(Content().ends_with(AudioBytes() + Id3v1Bytes("")));
  EXPECT_EQ(Content().substr(10, 11), TextFrameBytes(3, "TIT2", ""));
}

TEST_F(TagObjectTest, DoesNotTouchATagItDoesNotUnderstand) {
  const std::string file = TagBytes(5, TextFrameBytes(4, "TIT2", "Title")) + AudioBytes();
  Write(file);
  TagObject tag = Loaded();
  EXPECT_TRUE(tag.HasID3v2());
  tag.SetFrame("TIT2", "New");
  EXPECT_THROW(tag.WriteID3v2(kSong), Failure);
  EXPECT_EQ(Content(), file);
  tag.RemoveID3v2(kSong);
  EXPECT_EQ(Content(), AudioBytes());
}

TEST_F(TagObjectTest, DoesNotTouchATagThatClaimsMoreThanTheFile) {
  const std::string file =
      "ID3\x03\0\0\x7F\x7F\x7F\x7F"s + TextFrameBytes(3, "TIT2", "Title") + std::string(900, 'x');
  Write(file);
  TagObject tag = Loaded();
  EXPECT_EQ(tag.Frame("TIT2"), "Title");
  tag.SetFrame("TIT2", "New");
  EXPECT_THROW(tag.WriteID3v2(kSong), Failure);
  EXPECT_THROW(tag.RemoveID3v2(kSong), Failure);
  EXPECT_EQ(Content(), file);
}

TEST_F(TagObjectTest, FindsNoId3v1InsideOtherTags) {
  const std::string inside = TagBytes(3, FrameBytes(3, "PRIV", "x\0"s + Id3v1Bytes("inside")));
  Write(inside);
  EXPECT_FALSE(Loaded().HasID3v1());
  Write(AudioBytes() + "APETAGEX" + std::string(123, 'x'));
  EXPECT_FALSE(Loaded().HasID3v1());
  Write(Id3v1Bytes("alone"));
  EXPECT_EQ(Loaded().V1Title(), "alone");
  Write("TAG");
  EXPECT_FALSE(Loaded().HasID3v1());
}

TEST_F(TagObjectTest, ListsCommentsFromOne) {
  Write(TagBytes(3, CommentBytes(3, "eng", "a", "1") + CommentBytes(3, "eng", "MusicMatch_Mood", "Wild") +
                        CommentBytes(3, "deu", "", "2")));
  const TagObject tag = Loaded();
  ASSERT_EQ(tag.Comments().Count(), 2u);
  EXPECT_EQ(tag.Comments().At(1).description, "a");
  EXPECT_EQ(tag.Comments().At(2).text, "2");
  EXPECT_THROW(tag.Comments().At(0), Failure);
  EXPECT_THROW(tag.Comments().At(3), Failure);
  EXPECT_EQ(tag.Mood(), "Wild");
}

TEST_F(TagObjectTest, WritesCommentsPicturesAndProperties) {
  drives_.Write("cover.jpg", "\xFF\xD8\xFF\xE0 jpeg");
  Write(AudioBytes());
  TagObject tag = Loaded();
  tag.Comments().Add("text", "description");
  tag.Comments().Add("", "empty text");
  tag.Images().Add("c:\\cover.jpg", "Cover ü");
  tag.SetPreference("1");
  tag.SetMood("2");
  tag.SetTempo("3");
  tag.SetSituation("4");
  tag.WriteID3v2(kSong);

  const TagObject back = Loaded();
  EXPECT_EQ(back.Comments().All(), (std::vector<TagComment>{{"description", "text"}, {"empty text", ""}}));
  ASSERT_EQ(back.Images().Count(), 1u);
  EXPECT_EQ(back.Images().At(1).description, "Cover ü");
  EXPECT_EQ(back.Images().At(1).mime_type, "image/jpeg");
  EXPECT_EQ(back.Images().At(1).data.size(), 9u);
  EXPECT_EQ(back.Preference() + back.Mood() + back.Tempo() + back.Situation(), "1234");
}

TEST_F(TagObjectTest, ReadsAPictureAtOnce) {
  drives_.Write("tmp.bmp", "BM1");
  TagObject tag(*files_);
  tag.Images().Add("c:\\tmp.bmp", "");
  files_->DeleteFile("c:\\tmp.bmp");
  EXPECT_EQ(tag.Images().At(1).data.size(), 3u);
  EXPECT_THROW(tag.Images().Add("c:\\tmp.bmp", ""), Failure);
  EXPECT_EQ(tag.Images().Count(), 1u);
}

TEST_F(TagObjectTest, CopesWithPicturesOfManyMegabytes) {
  drives_.Write("tmp.bmp", "BM" + std::string(20'000'000, '\xFF'));
  Write(kTag4 + AudioBytes());
  TagObject tag = Loaded();
  tag.Images().Add("c:\\tmp.bmp", "large");
  tag.WriteID3v2(kSong);
  EXPECT_EQ(Loaded().Images().At(1).data.size(), 20'000'002u);
}

TEST_F(TagObjectTest, FollowsALinkAndKeepsTheMode) {
  drives_.WriteAt(drives_.D() / "real.mp3", kTag3 + AudioBytes());
  std::filesystem::permissions(drives_.D() / "real.mp3", std::filesystem::perms(0640));
  std::filesystem::create_symlink(drives_.D() / "real.mp3", drives_.C() / "song.mp3");
  TagObject tag = Loaded();
  tag.SetFrame("TIT2", "New");
  tag.WriteID3v2(kSong);
  EXPECT_TRUE(std::filesystem::is_symlink(drives_.C() / "song.mp3"));
  EXPECT_EQ(std::filesystem::status(drives_.D() / "real.mp3").permissions(), std::filesystem::perms(0640));
  EXPECT_EQ(Loaded().Frame("TIT2"), "New");
}

TEST_F(TagObjectTest, RefusesAReadOnlyFile) {
  Write(kTag3 + AudioBytes());
  std::filesystem::permissions(drives_.C() / "song.mp3", std::filesystem::perms(0444));
  TagObject tag = Loaded();
  tag.SetFrame("TIT2", "New");
  EXPECT_THROW(tag.WriteID3v2(kSong), Failure);
  EXPECT_THROW(tag.WriteID3v1(kSong), Failure);
  EXPECT_THROW(tag.RemoveID3v2(kSong), Failure);
  EXPECT_EQ(Content(), kTag3 + AudioBytes());
  EXPECT_EQ(FilesInFolder(), 1u);
}

TEST_F(TagObjectTest, KnowsAllGenres) {
  const std::string list = TagObject::GenreList();
  EXPECT_EQ(std::ranges::count(list, '|'), 191);
  EXPECT_TRUE(list.starts_with("Blues|Classic Rock|"));
  EXPECT_TRUE(list.ends_with("|Psybient"));
}

// Four bytes in front look like audio, which other audio follows in a picture at the right place.
TEST_F(TagObjectTest, WritesNoTagThatWouldNotBeFoundAgain) {
  int refused = 0;
  for (std::size_t shift = 0; shift < 4; ++shift) {
    drives_.Write("a.mp3", "....\xFF\xFB\x90\x64" +
                               TagBytes(3, TextFrameBytes(3, "TIT2", "T") + std::string(600, '\0')) + AudioBytes());
    Bytes data(shift, '.');
    for (int i = 0; i < 200; ++i) data.insert(data.end(), {0xFF, 0xFB, 0x90, 0x64});
    TagObject tag(*files_);
    tag.ReadTags("c:\\a.mp3", false);
    ASSERT_TRUE(tag.HasID3v2());
    tag.Images().Append({"", "image/bmp", data});
    const bool written = Guarded([&] { tag.WriteID3v2("c:\\a.mp3"); });
    refused += written ? 0 : 1;
    TagObject after(*files_);
    after.ReadTags("c:\\a.mp3", false);
    EXPECT_TRUE(after.HasID3v2());
    EXPECT_EQ(after.Images().Count(), written ? 1u : 0u);
  }
  EXPECT_GE(refused, 1);
}

// Four bytes in front make a header once the tag no longer claims to be unsynchronised, which it isn't.
TEST_F(TagObjectTest, WritesNoTagThatMakesAHeaderOfWhatStandsInFront) {
  const std::string content = "ID3\x03" + TagBytes(3, TextFrameBytes(3, "TIT2", "T\xFF\xFB"), 0x80) + AudioBytes();
  drives_.Write("a.mp3", content);
  TagObject tag(*files_);
  tag.ReadTags("c:\\a.mp3", false);
  ASSERT_TRUE(tag.HasID3v2());
  tag.SetFrame("TIT2", "Another");
  EXPECT_FALSE(Guarded([&] { tag.WriteID3v2("c:\\a.mp3"); }));
  EXPECT_EQ(drives_.Read("a.mp3"), content);
}

}  // namespace
}  // namespace qublet

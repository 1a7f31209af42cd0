#include "media/tag_file.h"

#include <gtest/gtest.h>

#include "support/song_tags_test_base.h"
#include "support/tag_bytes.h"

namespace qublet {
namespace {

const std::string kTag3 = TagBytes(3, TextFrameBytes(3, "TIT2", "Title") + TextFrameBytes(3, "TPE1", "Artist"));

class WriteTagToFileTest : public SongTagsTest {
 protected:
  Outcome Update(TagObject& tag, bool v1, bool v2, const std::string& path = kSong) {
    Outcome ok = v1 ? Outcome() : Outcome::GivenUp("what was there before");
    WriteTagToFile(*files_, path, tag, v1, v2, ok);
    return ok;
  }
};

TEST_F(WriteTagToFileTest, WritesWhatIsCheckedAndStripsTheOther) {
  Write(kTag3 + AudioBytes() + Id3v1Bytes("Old"));
  TagObject tag = Loaded();
  EXPECT_TRUE(Update(tag, true, false));
  EXPECT_EQ(Content(), AudioBytes() + Id3v1Bytes("Old"));
  EXPECT_TRUE(Update(tag, false, true));
  EXPECT_TRUE(Content().starts_with(kTag3.substr(0, 6)));
  EXPECT_TRUE(Content().ends_with(AudioBytes()));
  EXPECT_TRUE(Update(tag, false, false));
  EXPECT_EQ(Content(), AudioBytes());
}

TEST_F(WriteTagToFileTest, RefusesFoldersMissingAndReadOnlyFiles) {
  Write(kTag3 + AudioBytes() + Id3v1Bytes("Old"));
  TagObject tag = Loaded();
  EXPECT_FALSE(Update(tag, true, true, "c:\\missing.mp3"));
  EXPECT_FALSE(Update(tag, true, true, "c:\\"));
  std::filesystem::permissions(drives_.C() / "song.mp3", std::filesystem::perms(0444));
  EXPECT_FALSE(Update(tag, false, false));
  EXPECT_FALSE(Update(tag, true, true));
  EXPECT_EQ(Content(), kTag3 + AudioBytes() + Id3v1Bytes("Old"));
}

TEST_F(WriteTagToFileTest, KeepsACompletedFirstStepWhenTheSecondFails) {
  const std::string strange = TagBytes(5, "whatever") + AudioBytes();
  Write(strange);
  TagObject tag = Loaded();
  tag.SetV1Title("New");
  EXPECT_FALSE(Update(tag, true, true));
  EXPECT_EQ(Content(), strange + Id3v1Bytes("New"));
}

TEST_F(WriteTagToFileTest, LoadsWhatGetID3TagIsGiven) {
  Write(kTag3 + AudioBytes());
  TagObject tag(*files_);
  Outcome ok = Outcome::GivenUp("");
  GetID3Tag(*files_, kSong, tag, ok);
  EXPECT_TRUE(ok);
  EXPECT_EQ(tag.Frame("TPE1"), "Artist");
  GetID3Tag(*files_, "c:\\", tag, ok);
  EXPECT_EQ(ok.Reason(), "is a folder");
}

TEST_F(WriteTagToFileTest, GivesTheTagsOfAFileWithoutMusic) {
  Write(kTag3 + std::string(5000, 'x'));
  TagObject tag(*files_);
  Outcome ok = Outcome::GivenUp("");
  GetID3Tag(*files_, kSong, tag, ok);
  EXPECT_TRUE(ok);
  EXPECT_EQ(tag.Frame("TIT2"), "Title");
}

}  // namespace
}  // namespace qublet

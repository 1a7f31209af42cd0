#include "media/track_titles.h"

#include <gtest/gtest.h>

#include "support/tag_bytes.h"
#include "support/temporary_drives.h"
#include "support/vorbis_bytes.h"

namespace qublet {
namespace {

class TrackTitlesTest : public testing::Test {
 protected:
  std::string Mp3Title(const std::string& content) {
    drives_.Write("a.mp3", content);
    return GetMp3TrackTitle(*files_, "c:\\a.mp3");
  }
  static std::string Tag(const std::string& title, const std::string& artist) {
    return TagBytes(3, TextFrameBytes(3, "TIT2", title) + TextFrameBytes(3, "TPE1", artist));
  }

  TemporaryDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
};

TEST_F(TrackTitlesTest, PutsTheArtistInFront) {
  EXPECT_EQ(Mp3Title(Tag("Title", "Artist") + AudioBytes()), "Artist - Title");
  EXPECT_EQ(Mp3Title(Tag("", "Artist") + AudioBytes()), "Artist");
  EXPECT_EQ(Mp3Title(Tag("Title", "") + AudioBytes()), "Unknown Artist - Title");
  EXPECT_EQ(Mp3Title(Tag("", "") + AudioBytes()), "");
  EXPECT_EQ(Mp3Title(AudioBytes()), "");
}

TEST_F(TrackTitlesTest, TakesBothFromId3v1WhereOneIsMissing) {
  EXPECT_EQ(Mp3Title(Tag("Full title", "") + AudioBytes() + Id3v1Bytes("Old", "Singer")), "Singer - Old");
  EXPECT_EQ(Mp3Title(Tag("Full title", "") + AudioBytes() + Id3v1Bytes("")), "");
  EXPECT_EQ(Mp3Title(Tag("Title", "Artist") + AudioBytes() + Id3v1Bytes("Old", "Singer")), "Artist - Title");
  EXPECT_EQ(Mp3Title(AudioBytes() + Id3v1Bytes("Old", "Singer")), "Singer - Old");
}

TEST_F(TrackTitlesTest, CleansBothTexts) {
  EXPECT_EQ(Mp3Title(Tag(" What's up? ", "A/B") + AudioBytes()), "A B - What s up ");
}

TEST_F(TrackTitlesTest, GivesNothingForWhatCannotBeRead) {
  EXPECT_EQ(GetMp3TrackTitle(*files_, "c:\\missing.mp3"), "");
  EXPECT_EQ(GetMp3TrackTitle(*files_, "c:\\"), "");
  EXPECT_EQ(GetMp3TrackTitle(*files_, ""), "");
  EXPECT_EQ(GetOggTrackTitle(*files_, "c:\\"), "");
  EXPECT_EQ(GetOggTrackTitle(*files_, "c:\\missing.ogg"), "");
}

TEST_F(TrackTitlesTest, NeedsNoMusicInTheFile) {
  EXPECT_EQ(Mp3Title(Tag("Title", "Artist") + std::string(5000, 'x')), "Artist - Title");
}

TEST_F(TrackTitlesTest, TakesVorbisComments) {
  drives_.Write("a.ogg", VorbisFile({"TITLE=Title", "ARTIST=Artist"}));
  EXPECT_EQ(GetOggTrackTitle(*files_, "c:\\a.ogg"), "Artist - Title");
  drives_.Write("a.ogg", VorbisFile({"TITLE=Title"}));
  EXPECT_EQ(GetOggTrackTitle(*files_, "c:\\a.ogg"), "Unknown Artist - Title");
  drives_.Write("a.ogg", VorbisFile({"title=Title"}));
  EXPECT_EQ(GetOggTrackTitle(*files_, "c:\\a.ogg"), "");
}

}  // namespace
}  // namespace qublet

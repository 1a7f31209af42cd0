#include "generators/bookmarks/bookmark_titles.h"

#include <gtest/gtest.h>

#include "playlist/m3u_lines.h"
#include "support/recorders.h"
#include "support/tag_bytes.h"
#include "support/temporary_drives.h"
#include "support/vorbis_bytes.h"

namespace qublet {
namespace {

// The user stops the work as soon as there is anything to stop.
class ImpatientFeedback : public RecordingFeedback {
 public:
  void BeginProgress(const std::string& caption, int maximum) override {
    RecordingFeedback::BeginProgress(caption, maximum);
    stopped = true;
  }
};

class BookmarkTitlesTest : public testing::Test {
 protected:
  static std::string Song(const std::string& artist, const std::string& title) {
    return TagBytes(3, TextFrameBytes(3, "TIT2", title) + TextFrameBytes(3, "TPE1", artist)) + AudioBytes();
  }
  std::string Built(const Collection& paths) {
    EXPECT_TRUE(BuildBookmarkTitles(*files_, "c:\\winamp.bm", paths, feedback_));
    return drives_.Read("winamp.bm");
  }
  std::string TitleOf(const std::string& path) {
    const std::string text = Built({path});
    EXPECT_TRUE(text.starts_with(path + "\r\n") && text.ends_with("\r\n")) << text;
    return text.substr(path.size() + 2, text.size() - path.size() - 4);
  }

  TemporaryDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
  RecordingFeedback feedback_;
};

TEST_F(BookmarkTitlesTest, ArePairsOfPathAndTitleInTheOrderOfTheList) {
  drives_.Write("m/b.mp3", Song("the BAND", "a song's end"));
  drives_.Write("m/a.ogg", VorbisFile({"TITLE=one", "ARTIST=two"}));
  drives_.Write("m/c.wav", "abc");
  EXPECT_EQ(Built({"c:\\m\\b.mp3", "c:\\m\\a.ogg", "c:\\m\\c.wav", "c:\\m\\b.mp3"}),
            "c:\\m\\b.mp3\r\nThe Band - A Song S End\r\n"
            "c:\\m\\a.ogg\r\nTwo - One\r\n"
            "c:\\m\\c.wav\r\nC\r\n"
            "c:\\m\\b.mp3\r\nThe Band - A Song S End\r\n");
}

TEST_F(BookmarkTitlesTest, TakeTheNameWithoutItsExtensionWhereTagsSayNothing) {
  drives_.Write("my SONG.MP3", AudioBytes());
  EXPECT_EQ(TitleOf("c:\\my SONG.MP3"), "My Song");
  EXPECT_EQ(TitleOf("c:\\gone away.mp3"), "Gone Away");
  EXPECT_EQ(TitleOf("c:\\don't.ogg"), "Don't");
  EXPECT_EQ(TitleOf("c:\\a.mp3 b.mp3"), "A B") << "wherever the extension stands";
  EXPECT_EQ(TitleOf("c:\\a.mp3.ogg"), "A.Mp3");
  EXPECT_EQ(TitleOf("c:\\plain"), "Plain");
}

TEST_F(BookmarkTitlesTest, AskOnlyTheTagsOfMp3AndOgg) {
  drives_.Write("a.wma", Song("Artist", "Title"));
  EXPECT_EQ(TitleOf("c:\\a.wma"), "A");
  drives_.Write("B.OGG", VorbisFile({"TITLE=Title", "ARTIST=Artist"}));
  EXPECT_EQ(TitleOf("c:\\B.OGG"), "Artist - Title");
  std::filesystem::create_directory(drives_.C() / "folder.mp3");
  EXPECT_EQ(TitleOf("c:\\folder.mp3"), "Folder");
}

TEST_F(BookmarkTitlesTest, ReplaceWhatTheFileHeld) {
  drives_.Write("winamp.bm", "c:\\old.mp3\r\nOld\r\n");
  EXPECT_EQ(Built({"c:\\a.mp3"}), "c:\\a.mp3\r\nA\r\n");
  EXPECT_EQ(Built({}), "");
}

TEST_F(BookmarkTitlesTest, StayInOrderWhenManyAreReadAhead) {
  Collection paths;
  std::string expected;
  for (int i = 0; i < 300; ++i) {
    const std::string number = std::to_string(i);
    drives_.Write("m/" + number + ".mp3", i % 3 == 0 ? AudioBytes(1) : Song("A", "Title " + number));
    paths.push_back("c:\\m\\" + number + ".mp3");
    expected += paths.back() + "\r\n" + (i % 3 == 0 ? number : "A - Title " + number) + "\r\n";
  }
  EXPECT_EQ(Built(paths), expected);
  ASSERT_EQ(feedback_.progress.size(), 1U);
  EXPECT_EQ(feedback_.progress[0].maximum, 300);
  EXPECT_TRUE(feedback_.progress[0].ended);
  EXPECT_FALSE(feedback_.foreign_thread);
}

TEST_F(BookmarkTitlesTest, LeaveTheFileAsItWasWhenTheUserStops) {
  drives_.Write("winamp.bm", "old");
  ImpatientFeedback impatient;
  const Collection paths(1000, "c:\\a.mp3");
  const Outcome built = BuildBookmarkTitles(*files_, "c:\\winamp.bm", paths, impatient);
  EXPECT_EQ(built.Reason(), "stopped");
  EXPECT_EQ(drives_.Read("winamp.bm"), "old");
  EXPECT_TRUE(impatient.progress.at(0).ended);
}

TEST_F(BookmarkTitlesTest, LeaveTheFileAsItWasWhenItCannotBeWritten) {
  drives_.Write("winamp.bm", "old");
  files_->SetAttributes("c:\\winamp.bm", kReadOnly);
  EXPECT_EQ(BuildBookmarkTitles(*files_, "c:\\winamp.bm", {"c:\\a.mp3"}, feedback_).Reason(), "read-only");
  EXPECT_EQ(drives_.Read("winamp.bm"), "old");
}

TEST_F(BookmarkTitlesTest, AreLeftOutWhenTheFileIsReadUnlessTheyNameMusic) {
  Built({"c:\\a.wav", "c:\\b.mp3.ogg"});
  Collection lines;
  EXPECT_TRUE(ReadPlaylistLines(*files_, "c:\\winamp.bm", lines));
  EXPECT_EQ(lines, (Collection{"c:\\a.wav", "c:\\b.mp3.ogg", "c:\\b.mp3.ogg", "B.Mp3"}));
}

}  // namespace
}  // namespace qublet

#include "playlist/paths/playlist_bounds.h"

#include "playlist/own_playlists.h"
#include "playlist/playlist_files_test_base.h"
#include "playlist/playlist_lines.h"

namespace qublet {
namespace {

constexpr std::size_t kMostLine = PlaylistBounds::kMostLineBytes;
constexpr std::size_t kRoom = PlaylistBounds::kMostLines;

std::string LineOf(std::size_t bytes) {
  return "c:\\" + std::string(bytes - 7, 'x') + ".mp3";
}

// The bounds of what is taken in, and what is said of the rest.
class PlaylistBoundsTest : public PlaylistFilesTest {
 protected:
  struct Reading {
    PlaylistLines playlist;
    Collection paths;
  };
  std::unique_ptr<Reading> Read(std::string content) const {
    auto reading = std::make_unique<Reading>();
    ReadPlaylistBytes(*files_, std::move(content), reading->playlist, reading->paths);
    EXPECT_EQ(reading->playlist.lines.size(), reading->paths.size());
    return reading;
  }
};

TEST_F(PlaylistBoundsTest, ALineBeyondThemIsSkippedAndCounted) {
  const std::string most = LineOf(kMostLine);
  const auto reading = Read(LineOf(kMostLine + 1) + "\n" + most + "\r\na.mp3\n" + std::string(5'000'000, 'x'));
  EXPECT_EQ(reading->paths, (Collection{most, "a.mp3"}));
  EXPECT_EQ(reading->playlist.long_lines, 2U);
  EXPECT_EQ(reading->playlist.other_lines, 0U);
  EXPECT_EQ(reading->playlist.further_lines, 0U);
}

TEST_F(PlaylistBoundsTest, ALongCommentIsACommentAllTheSame) {
  EXPECT_EQ(Read("#EXTART:" + std::string(kMostLine, 'x') + "\na.mp3\n")->playlist.long_lines, 0U);
}

TEST_F(PlaylistBoundsTest, CollectingEndsAtTheRoomOfAList) {
  std::string content = "b.flac\n";
  for (std::size_t i = 0; i < kRoom + 3; ++i) content += "a.mp3\n";
  const auto reading = Read(content + "a.mp3.wav\nc.flac\n" + LineOf(kMostLine + 1));
  EXPECT_EQ(reading->paths, Collection(kRoom, "a.mp3"));
  EXPECT_EQ(reading->playlist.further_lines, 5U) << "a line that names two files counts as two";
  EXPECT_EQ(reading->playlist.other_lines, 2U);
  EXPECT_EQ(reading->playlist.long_lines, 1U);
}

TEST_F(PlaylistBoundsTest, CollectingEndsAtSoManyBytesOfPaths) {
  const std::string line = LineOf(kMostLine) + "\n";
  constexpr std::size_t kFit = PlaylistBounds::kMostPathBytes / kMostLine;
  std::string content;
  for (std::size_t i = 0; i < kFit + 2; ++i) content += line;
  const auto reading = Read(content + "a.mp3\n");
  EXPECT_EQ(reading->paths.size(), kFit);
  EXPECT_EQ(reading->playlist.further_lines, 3U) << "a short one behind them would stand in the wrong place";
}

TEST_F(PlaylistBoundsTest, TheProgramsOwnListsHaveThemToo) {
  std::string content = LineOf(kMostLine + 1) + "\r\n";
  for (std::size_t i = 0; i < kRoom + 3; ++i) content += "c:\\a.mp3\r\n";
  drives_.Write("last.m3u", content);
  Collection paths;
  EXPECT_TRUE(ReadOwnPlaylist(*files_, "c:\\last.m3u", paths));
  EXPECT_EQ(paths, Collection(kRoom, "c:\\a.mp3"));
}

TEST_F(PlaylistBoundsTest, WhatIsLeftOutOfAnOpenedListIsSaidAndTheListHasNoFile) {
  drives_.Write("long.m3u", LineOf(kMostLine + 1) + "\r\nc:\\m\\a\\1.mp3\r\n");
  EXPECT_FALSE(Open("c:\\long.m3u"));
  EXPECT_EQ(Names(), "1.mp3");
  EXPECT_EQ(document_.CurrentPlaylist, "");
  EXPECT_EQ(
      dialogs_.messages,
      (Messages{{"1 line is longer than 32 KiB and left out.", MessageIcon::kExclamation, MessageButtons::kOk}}));
}

TEST_F(PlaylistBoundsTest, WhatIsLeftOutForBothReasonsIsSaidAtOnce) {
  drives_.Write("long.m3u", LineOf(kMostLine + 1) + "\r\n" + PlaylistOfMissingFiles(RowStore::MaxRows + 2) +
                                LineOf(kMostLine + 1));
  Open("c:\\long.m3u");
  EXPECT_EQ(dialogs_.messages, (Messages{{"The list ends at 32,767 items: 2 lines of this file were left out.\r"
                                          "2 lines are longer than 32 KiB and left out.",
                                          MessageIcon::kExclamation, MessageButtons::kOk}}));
}

TEST_F(PlaylistBoundsTest, WhatIsLeftOutByThePathsTogetherIsSaid) {
  std::string content;
  for (std::size_t i = 0; i < PlaylistBounds::kMostPathBytes / kMostLine + 1; ++i)
    content += LineOf(kMostLine) + "\n";
  drives_.Write("long.m3u", content);
  Open("c:\\long.m3u");
  EXPECT_EQ(dialogs_.messages, (Messages{{"The list ends at 64 MiB of paths: 1 lines of this file were left out.",
                                          MessageIcon::kExclamation, MessageButtons::kOk}}));
  EXPECT_EQ(document_.CurrentPlaylist, "");
}

TEST_F(PlaylistBoundsTest, WhatIsLeftOutOfAnImportedListIsAPassingRemark) {
  drives_.Write("long.m3u", LineOf(kMostLine + 1) + "\r\nc:\\m\\a\\1.mp3\r\n");
  EXPECT_TRUE(Import("c:\\long.m3u"));
  EXPECT_EQ(feedback_.remarks, Collection{"1 line is longer than 32 KiB and left out"});
  EXPECT_TRUE(dialogs_.messages.empty());
}

TEST_F(PlaylistBoundsTest, WhatIsLeftOutByOneCommandIsSaidTogether) {
  drives_.Write("long.m3u", LineOf(kMostLine + 1) + "\r\nc:\\m\\a\\1.mp3\r\n");
  {
    const WaitCursor command(feedback_);
    for (const char* path : {"c:\\long.m3u", "c:\\long.m3u", "c:\\m"}) items_.AddStuff(path, false);
  }
  EXPECT_EQ(feedback_.remarks.back(), "2 lines are longer than 32 KiB and left out");
  feedback_.remarks.clear();
  items_.AddStuff("c:\\long.m3u", false);
  EXPECT_EQ(feedback_.remarks, Collection{"1 line is longer than 32 KiB and left out"});
  feedback_.remarks.clear();
  {
    const WaitCursor command(feedback_);
    items_.AddStuff("c:\\m", false);
  }
  EXPECT_EQ(feedback_.remarks, Collection{}) << "of another command there is nothing to say";
}

TEST_F(PlaylistBoundsTest, WhatIsLeftOutByAStoppedCommandIsNotSaid) {
  drives_.Write("long.m3u", LineOf(kMostLine + 1) + "\r\nc:\\m\\a\\1.mp3\r\n");
  feedback_.stopped = true;
  items_.AddStuff("c:\\long.m3u", false);
  EXPECT_EQ(feedback_.remarks, Collection{});
}

}  // namespace
}  // namespace qublet

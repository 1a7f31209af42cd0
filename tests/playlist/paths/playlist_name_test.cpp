#include "playlist/paths/playlist_name.h"

#include <gtest/gtest.h>

#include "support/stopped_clock.h"

namespace qublet {
namespace {

std::string NameFor(std::string format, const std::string& path) {
  return MakePlaylistName(format, path, StoppedClock());
}

TEST(MakePlaylistName, FillsFormatsFromThePath) {
  const struct {
    const char *format, *path, *expected;
  } cases[] = {
      {"%1-%2", "c:\\test\\mp3s\\artist\\title", "artist-mp3s.m3u"},
      {"%1-%2", "d:\\music\\abba\\gold\\", "gold-abba.m3u"},
      {"%1-%2", "d:\\music\\", "music-d.m3u"},
      {"%0", "d:\\music\\abba", "abba.m3u"},
      {"%0", "d:\\music\\abba\\", ""},
      {"", "d:\\a\\", "-a-d--------.m3u"},
      {"plain", "d:\\a\\", "plain.m3u"},
      {"%9", "d:\\a\\", ""},
      {":", "d:\\a\\", ""},
      {"%DATE %TIME", "d:\\a", "03-09-2004 07-05-01.m3u"},
      {"%date%time", "d:\\a", "%date%time.m3u"},
      {"%0", "", ""},
      {"%0", "abba", "abba.m3u"},
      {"%0%0", "d:\\a", "aa.m3u"},
      {"%10", "d:\\one\\zero", "one0.m3u"},
      {"%3%9x", "c:\\1\\2\\3", "cx.m3u"},
      {"100%", "d:\\a", "100%.m3u"},
      {"%a", "d:\\a", "%a.m3u"},
  };
  for (const auto& c : cases) EXPECT_EQ(NameFor(c.format, c.path), c.expected) << c.format << " " << c.path;
}

TEST(MakePlaylistName, ReplacesTokensThatAPieceBringsAlong) {
  EXPECT_EQ(NameFor("%0", "d:\\up\\%1"), "up.m3u");
  EXPECT_EQ(NameFor("%1", "d:\\%0\\x"), "%0.m3u");
  EXPECT_EQ(NameFor("%0", "d:\\%DATE"), "03-09-2004.m3u");
  EXPECT_EQ(NameFor("%0", "d:\\a\\%8"), "");
}

TEST(MakePlaylistName, ReachesALevelBeyondNineOnlyThroughAPiece) {
  const std::string path = "c:\\ten\\9\\8\\7\\6\\5\\4\\3\\%1\\one\\0";
  EXPECT_EQ(NameFor("%10", path), "one0.m3u");
  EXPECT_EQ(NameFor("%20", path), "ten.m3u");
}

TEST(MakePlaylistName, TrimsBeforeItRemovesTheThreeRefusedCharacters) {
  EXPECT_EQ(NameFor("  a  ", "d:\\x"), "a.m3u");
  EXPECT_EQ(NameFor(": a :", "d:\\x"), " a .m3u");
  EXPECT_EQ(NameFor("a:b\\c/d", "d:\\x"), "abcd.m3u");
  EXPECT_EQ(NameFor("a*?\"<>|", "d:\\x"), "a*?\"<>|.m3u");
  EXPECT_EQ(NameFor("/ ", "d:\\x"), "");
}

TEST(MakePlaylistName, KeepsTheBlankOfAFolderInsideTheName) {
  EXPECT_EQ(NameFor("%1-%0", "d:\\abba \\ gold "), "abba - gold.m3u");
}

TEST(MakePlaylistName, LeavesTheFinishedNameInTheFormat) {
  std::string format = " %0: ";
  EXPECT_EQ(MakePlaylistName(format, "d:\\abba", StoppedClock()), "abba.m3u");
  EXPECT_EQ(format, "abba");
  format = "%9";
  EXPECT_EQ(MakePlaylistName(format, "d:\\abba", StoppedClock()), "");
  EXPECT_EQ(format, "");
}

TEST(MakePlaylistName, GivesUpANameThatGrowsWithoutEnd) {
  std::string path = "c:";
  for (int level = 40; level > 0; --level) {
    const std::string token = std::string("%").append(std::to_string(level));
    path.append("\\").append(token).append(token);
  }
  EXPECT_EQ(NameFor("%0", path), "");
  EXPECT_EQ(NameFor("x", std::string(40000, 'a')), "");
}

}  // namespace
}  // namespace qublet

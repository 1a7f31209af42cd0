#include "playlist/paths/collections.h"

#include <gtest/gtest.h>

#include <ctime>

#include "support/temporary_drives.h"

namespace qublet {
namespace {

TEST(ClearCollection, LeavesNothing) {
  Collection items = {"a", "b"};
  ClearCollection(items);
  EXPECT_TRUE(items.empty());
}

TEST(CollectFolders, MergesOnlyNeighbours) {
  Collection folders;
  EXPECT_TRUE(CollectFolders({"c:\\a\\1", "c:\\a\\2", "c:\\b\\1", "c:\\a\\3"}, folders));
  EXPECT_EQ(folders, (Collection{"c:\\a\\", "c:\\b\\", "c:\\a\\"}));
}

TEST(CollectFolders, AppendsWithoutLookingAtWhatIsThere) {
  Collection folders = {"c:\\a\\"};
  EXPECT_TRUE(CollectFolders({"c:\\a\\1"}, folders));
  EXPECT_EQ(folders, (Collection{"c:\\a\\", "c:\\a\\"}));
}

TEST(CollectFolders, TakesTheNameOutWhereverItStands) {
  Collection folders;
  EXPECT_TRUE(CollectFolders({"c:\\abba\\b", "bare.mp3"}, folders));
  EXPECT_EQ(folders, (Collection{"c:\\aa\\", ""}));
}

TEST(CollectFolders, AnswersFalseForNoFiles) {
  Collection folders;
  EXPECT_FALSE(CollectFolders({}, folders));
  EXPECT_TRUE(folders.empty());
}

TEST(FilterFilesInFolder, GivesBareNamesAndCompletesTheFolder) {
  const Collection files = {"c:\\a\\1.mp3", "c:\\A\\2.mp3", "c:\\a\\b\\3.mp3", "c:\\a\\4.mp3"};
  Collection names = {"before"};
  std::string folder = "c:\\a";
  EXPECT_TRUE(FilterFilesInFolder(files, names, folder));
  EXPECT_EQ(names, (Collection{"before", "1.mp3", "4.mp3"}));
  EXPECT_EQ(folder, "c:\\a\\");
}

TEST(FilterFilesInFolder, AnswersFalseWhenNothingLiesThere) {
  Collection names = {"before"};
  std::string folder = "c:\\x\\";
  EXPECT_FALSE(FilterFilesInFolder({"c:\\a\\1.mp3"}, names, folder));
  EXPECT_EQ(names, Collection{"before"});
  EXPECT_EQ(folder, "c:\\x\\");
}

TEST(FilterLinesContaining, GivesPositionsFromOne) {
  std::vector<int> positions;
  EXPECT_TRUE(FilterLinesContaining({"abc", "xyz", "ABC", "zabcz"}, positions, "abc"));
  EXPECT_EQ(positions, (std::vector<int>{1, 4}));
  EXPECT_FALSE(FilterLinesContaining({"abc"}, positions, "q"));
  EXPECT_EQ(positions, (std::vector<int>{1, 4}));
}

TEST(MakeLinesRelative, RemovesTheBaseWhereverItStands) {
  Collection lines = {"c:\\a\\1.mp3", "c:\\ab\\2.mp3", "d:\\c:\\a\\c:\\a\\3", "C:\\a\\4", ""};
  MakeLinesRelative(lines, "c:\\a");
  EXPECT_EQ(lines, (Collection{"1.mp3", "c:\\ab\\2.mp3", "d:\\3", "C:\\a\\4", ""}));
}

TEST(MakeLinesRelative, TakesEveryBackslashForAnEmptyBase) {
  Collection lines = {"c:\\a\\1"};
  MakeLinesRelative(lines, "");
  EXPECT_EQ(lines, Collection{"c:a1"});
}

TEST(KeepExistingFiles, KeepsTheOrderOfWhatIsThere) {
  const TemporaryDrives drives;
  drives.Write("music/a.mp3", "a");
  drives.Write("music/b.mp3", "b");
  const auto files = OpenFileSystem();
  Collection lines = {"c:\\music\\b.mp3", "c:\\gone.mp3", "c:\\music", "", "c:\\music\\a.mp3"};
  EXPECT_FALSE(KeepExistingFiles(*files, lines));
  EXPECT_EQ(lines, (Collection{"c:\\music\\b.mp3", "c:\\music", "c:\\music\\a.mp3"}));
  EXPECT_TRUE(KeepExistingFiles(*files, lines));
  EXPECT_EQ(lines.size(), 3u);
}

TEST(KeepExistingFiles, EmptiesAListOfMissingFiles) {
  const TemporaryDrives drives;
  const auto files = OpenFileSystem();
  Collection lines = {"c:\\x", "d:\\y", "q:\\z"};
  EXPECT_FALSE(KeepExistingFiles(*files, lines));
  EXPECT_TRUE(lines.empty());
  EXPECT_TRUE(KeepExistingFiles(*files, lines));
}

TEST(FindCommonFolder, FindsThePiecesOfTheLongestFolderInAllOthers) {
  const struct {
    Collection files;
    const char* expected;
  } cases[] = {
      {{"c:\\a\\b\\1.mp3"}, "c:\\a\\b"},
      {{"c:\\a\\1.mp3", "d:\\a\\1.mp3"}, ""},
      {{"c:\\a\\1", "c:\\a\\x\\2", "c:\\a\\y\\3"}, "c:\\a"},
      {{"c:\\a\\1", "c:\\a\\b\\2", "c:\\a\\c\\3"}, "c:\\a\\c"},  // "c" occurs in every "c:"
      {{"c:\\1", "c:\\a\\2"}, "c:"},
      {{"c:\\1"}, "c:"},
      // A piece may stand anywhere in the others, so that not every file begins with the result: "other\rock\music"
      // is the longest and "other" isn't found.
      {{"c:\\music\\rock\\1", "c:\\other\\rock\\music\\2"}, "c:"},
      {{"c:\\music\\rock\\x\\1", "c:\\rock\\music\\2"}, "c:\\music\\rock"},
      {{"c:\\aa\\1", "c:\\aab\\2"}, "c:"},
      {{"c:\\aab\\1", "c:\\a\\x\\y\\2"}, "c:\\a"},
      {{"c:\\ab\\1", "c:\\cd\\2"}, "c:"},
      {{"c:\\Music\\1", "c:\\music\\b\\2"}, "c:"},
      // Equally long: the later one gives the pieces.
      {{"c:\\x\\xy\\1", "c:\\xy\\x\\2"}, "c:\\xy\\x"},
      {{"c:\\xy\\x\\1", "c:\\x\\xy\\2"}, "c:\\x\\xy"},
      // Length counts characters: four of two bytes are fewer than five of one.
      {{"c:\\abcde\\1", "c:\\\u00E4\u00E4\u00E4\u00E4\\2"}, "c:"},
      {{"c:\\a\\a\\a\\1", "c:\\a\\2"}, "c:\\a\\a\\a"},
      // What a file is called counts wherever a folder begins with it.
      {{"c:\\a\\ab\\a"}, "c:b"},
      {{"c:\\a\\b\\"}, "c:ab"},
      {{"bare.mp3"}, "bare.mp3"},
      {{"a.mp3", "b.mp3"}, ""},
      {{"\\\\server\\share\\1", "\\\\server\\share\\b\\2"}, "\\\\server\\share"},
      {{""}, ""},
      {{}, ""},
  };
  for (const auto& c : cases) EXPECT_EQ(FindCommonFolder(c.files), c.expected) << testing::PrintToString(c.files);
}

TEST(FindCommonFolder, TakesAFullListInWellUnderASecond) {
  Collection files;
  for (int i = 0; i < 32767; ++i) {
    std::string path = "c:\\a common beginning of some length\\music";
    path.append("\\artist ").append(std::to_string(i % 3000)).append("\\album ").append(std::to_string(i / 7));
    files.push_back(path.append("\\a title of a usual length ").append(std::to_string(i)).append(".mp3"));
  }
  const std::clock_t start = std::clock();  // processor time: other work on the machine doesn't count
  EXPECT_EQ(FindCommonFolder(files), "c:\\a common beginning of some length\\music");
  EXPECT_LT(std::clock() - start, CLOCKS_PER_SEC);
}

}  // namespace
}  // namespace qublet

#include "playlist/paths/path_text.h"

#include <gtest/gtest.h>

namespace qublet {
namespace {

TEST(GetExtension, RunsFromTheLastDotToTheEnd) {
  const struct {
    const char *name, *expected;
  } cases[] = {{"a.mp3", ".mp3"},      {"a.b.Mp3", ".Mp3"},    {"a", ""}, {"", ""}, {"a.", "."},
               {".hidden", ".hidden"}, {"c:\\a.b\\c", ".b\\c"}};
  for (const auto& c : cases) EXPECT_EQ(GetExtension(c.name), c.expected) << c.name;
}

TEST(GetFileName, IsThePieceBehindTheLastBackslash) {
  const struct {
    const char *path, *expected;
  } cases[] = {{"c:\\music\\a.mp3", "a.mp3"},
               {"a.mp3", "a.mp3"},
               {"", ""},
               {"c:\\music\\", ""},
               {"c:", "c:"},
               {"\\a", "a"},
               {"c:\\b/c", "b/c"}};
  for (const auto& c : cases) EXPECT_EQ(GetFileName(c.path), c.expected) << c.path;
}

TEST(FolderAsItStands, IsWhatStandsInFrontOfTheFileName) {
  EXPECT_EQ(FolderAsItStands("c:\\m\\a.mp3"), "c:\\m\\");
  EXPECT_EQ(FolderAsItStands("c:\\a.mp3\\a.mp3"), "c:\\a.mp3\\");
  EXPECT_EQ(FolderAsItStands("c:\\m\\"), "c:\\m\\");
  EXPECT_EQ(FolderAsItStands("a.mp3"), "");
  EXPECT_EQ(FolderAsItStands(""), "");
}

TEST(GetFolderPath, LosesEveryOccurrenceOfTheFileName) {
  const struct {
    const char *path, *expected;
  } cases[] = {{"c:\\music\\a.mp3", "c:\\music\\"}, {"c:\\a.mp3\\a.mp3", "c:\\\\"}, {"a.mp3", ""},          {"", ""},
               {"c:\\music\\", "c:\\music\\"},      {"c:\\abba\\a", "c:\\bb\\"},    {"c:\\A\\a", "c:\\A\\"}};
  for (const auto& c : cases) EXPECT_EQ(GetFolderPath(c.path), c.expected) << c.path;
}

TEST(NormalizePath, CompletesTheDriveLowersItAndCutsOneBackslash) {
  const struct {
    const char *path, *expected;
  } cases[] = {{"C:\\", "c:"},
               {"", ""},
               {"c:", "c:"},
               {"c:music", "c:\\music"},
               {"D:\\Music", "d:\\Music"},
               {"d:\\", "d:"},
               {"D:\\a\\D:x", "d:\\a\\d:x"},
               {"D:\\a\\d:x", "d:\\a\\d:x"},
               {"Music\\A.mp3", "Music\\A.mp3"},
               {"Music\\", "Music"},
               {"c:\\a\\\\", "c:\\a\\"},
               {"\\", ""},
               {":", ":"},
               {"D:a:b", "d:\\a:\\b"},
               {"D:\\a:b", "d:\\a:b"},
               {"\\\\SERVER\\Share", "\\\\SERVER\\Share"},
               {"ABC:\\x\\ABC", "abC:\\x\\abC"},
               {"ÄB:\\ÄB", "äb:\\äb"}};
  for (const auto& c : cases) EXPECT_EQ(NormalizedPath(c.path), c.expected) << c.path;
}

TEST(NormalizePath, ChangesItsArgumentAndGivesItBack) {
  std::string path = "D:\\Music\\";
  const std::string& result = NormalizePath(path);
  EXPECT_EQ(path, "d:\\Music");
  EXPECT_EQ(&result, &path);
}

}  // namespace
}  // namespace qublet

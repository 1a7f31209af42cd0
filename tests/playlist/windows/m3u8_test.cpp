#include <gtest/gtest.h>

#include "playlist/m3u_lines.h"
#include "support/list_test_base.h"

namespace qublet {
namespace {

class WindowsM3u8Test : public ListTestBase {
 protected:
  std::string Written(const Collection& lines, bool relative) const {
    EXPECT_TRUE(WritePlaylistLines(*files_, "c:\\list.m3u8", lines, relative));
    return drives_.Read("list.m3u8");
  }
};

TEST_F(WindowsM3u8Test, HoldsPathsAsThisSystemWritesThemInUtf8WithLineFeeds) {
  const std::string c = drives_.C().string();
  EXPECT_EQ(Written({"c:\\m\\Bj\u00F6rk.mp3", "c:\\\u97F3.mp3"}, false),
            c + "\\m\\Bj\u00F6rk.mp3\n" + c + "\\\u97F3.mp3\n");
}

TEST_F(WindowsM3u8Test, HoldsRelativePathsWithBackslashes) {
  EXPECT_EQ(Written({"c:\\m\\1.mp3", "c:\\2.mp3"}, true), "m\\1.mp3\n2.mp3\n");
}

TEST_F(WindowsM3u8Test, HoldsRelativePathsThatLeaveItsFolder) {
  drives_.Write("lists/x", "");
  EXPECT_TRUE(WritePlaylistLines(*files_, "c:\\lists\\list.m3u8", {"c:\\m\\1.mp3", "c:\\lists\\#2.mp3"}, true));
  EXPECT_EQ(drives_.Read("lists/list.m3u8"), "..\\m\\1.mp3\n.\\#2.mp3\n");
}

TEST_F(WindowsM3u8Test, IsReadBackAsTheSamePaths) {
  const Collection paths{"c:\\m\\Bj\u00F6rk.mp3", "d:\\\u97F3.mp3", "\\\\nas\\music\\a.mp3"};
  Written(paths, false);
  Collection lines;
  EXPECT_TRUE(ReadPlaylistLines(*files_, "c:\\list.m3u8", lines));
  EXPECT_EQ(lines, paths);
}

TEST_F(WindowsM3u8Test, TakesRelativePathsOfOtherSystems) {
  Collection lines;
  EXPECT_TRUE(ReadPlaylistText(*files_, "sub/a.mp3\n", true, lines));
  EXPECT_EQ(lines, Collection{"c:\\sub\\a.mp3"});
}

}  // namespace
}  // namespace qublet

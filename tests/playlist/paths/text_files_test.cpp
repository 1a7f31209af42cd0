#include "playlist/paths/text_files.h"

#include <gtest/gtest.h>

#include "support/temporary_drives.h"

namespace qublet {
namespace {

TEST(SplitLines, KnowsThreeKindsOfEnds) {
  const struct {
    std::string text;
    Collection expected;
  } cases[] = {{"", {}},
               {"a", {"a"}},
               {"a\r\n", {"a"}},
               {"a\nb", {"a", "b"}},
               {"a\rb\r", {"a", "b"}},
               {"a\r\nb\nc\rd", {"a", "b", "c", "d"}},
               {"\r\n", {""}},
               {"\r\r\n\n", {"", "", ""}},
               {"a\n\nb\n", {"a", "", "b"}},
               {"\n\r", {"", ""}},
               {std::string("a\0b\nc", 5), {std::string("a\0b", 3), "c"}}};
  for (const auto& c : cases) EXPECT_EQ(SplitLines(c.text), c.expected) << testing::PrintToString(c.text);
}

class TextFiles : public testing::Test {
 protected:
  const TemporaryDrives drives_;
  const std::unique_ptr<FileSystem> files_ = OpenFileSystem();

  Collection LinesOf(const std::string& path) const {
    Collection lines;
    EXPECT_TRUE(ReadLinesFromFile(*files_, lines, path));
    return lines;
  }
};

TEST_F(TextFiles, AreWrittenInTheCodePageWithCarriageReturnAndLineFeed) {
  EXPECT_TRUE(WriteLinesToFile(*files_, "c:\\a.m3u", {"c:\\Bj\u00F6rk.mp3", "", "\u20AC"}));
  EXPECT_EQ(drives_.Read("a.m3u"), "c:\\Bj\xF6rk.mp3\r\n\r\n\x80\r\n");
}

TEST_F(TextFiles, AreWrittenAsUtf8WhenACharacterDoesNotFit) {
  EXPECT_TRUE(WriteLinesToFile(*files_, "c:\\a.m3u", {"\u0416.mp3", "\u00F6"}));
  EXPECT_EQ(drives_.Read("a.m3u"), "\u0416.mp3\r\n\u00F6\r\n");
}

TEST_F(TextFiles, ReplaceWhatIsThere) {
  drives_.Write("a.m3u", "a much longer text than the new one");
  EXPECT_TRUE(WriteLinesToFileChecked(*files_, {"x"}, "c:\\a.m3u"));
  EXPECT_EQ(drives_.Read("a.m3u"), "x\r\n");
  EXPECT_TRUE(WriteLinesToFile(*files_, "c:\\a.m3u", {}));
  EXPECT_EQ(drives_.Read("a.m3u"), "");
  EXPECT_TRUE(std::filesystem::exists(drives_.C() / "a.m3u"));
}

TEST_F(TextFiles, AnswerFalseWhereNothingCanBeWritten) {
  drives_.Write("folder/a", "x");
  for (const char* path : {"c:\\missing\\a.m3u", "q:\\a.m3u", "c:\\folder", ""}) {
    EXPECT_FALSE(WriteLinesToFile(*files_, path, {"x"})) << path;
    EXPECT_FALSE(WriteTextFile(*files_, path, "x")) << path;
  }
}

TEST_F(TextFiles, LeaveNoTemporaryFileBehind) {
  EXPECT_TRUE(WriteTextFile(*files_, "d:\\a", "x"));
  const std::filesystem::directory_iterator entries(drives_.D());
  EXPECT_EQ(std::distance(begin(entries), end(entries)), 1);
}

TEST_F(TextFiles, AreReadLineByLineAndAppended) {
  drives_.Write("a.txt", "one\r\n\r\ntwo\nthree\rfour");
  Collection lines = {"before"};
  EXPECT_TRUE(ReadLinesFromFile(*files_, lines, "c:\\a.txt"));
  EXPECT_EQ(lines, (Collection{"before", "one", "", "two", "three", "four"}));
}

TEST_F(TextFiles, AreReadAsUtf8OrCodePage) {
  drives_.Write("utf8.txt", "\xEF\xBB\xBF\u00F6\r\n\u0416");
  drives_.Write("page.txt", "\xF6\x80");
  EXPECT_EQ(LinesOf("c:\\utf8.txt"), (Collection{"\u00F6", "\u0416"}));
  EXPECT_EQ(LinesOf("c:\\page.txt"), Collection{"\u00F6\u20AC"});
}

TEST_F(TextFiles, ComeBackAsTheyWereWritten) {
  const Collection texts[] = {{"plain"}, {"\u00C3\u00B6"}, {"\u00F6", ""}, {"\u0416\u20AC", " x "}, {}};
  for (const Collection& lines : texts) {
    EXPECT_TRUE(WriteLinesToFile(*files_, "c:\\a.txt", lines));
    EXPECT_EQ(LinesOf("c:\\a.txt"), lines);
  }
}

TEST_F(TextFiles, AnswerFalseWhereNothingCanBeRead) {
  drives_.Write("folder/a", "x");
  Collection lines = {"before"};
  std::string bytes = "before";
  for (const char* path : {"c:\\missing", "c:\\folder", "q:\\a", ""}) {
    EXPECT_FALSE(ReadLinesFromFile(*files_, lines, path)) << path;
    EXPECT_FALSE(ReadTextFile(*files_, path, bytes)) << path;
  }
  EXPECT_EQ(lines, Collection{"before"});
  EXPECT_EQ(bytes, "before");
  EXPECT_EQ(ReadTextFile(*files_, "c:\\missing", bytes).Reason(), "no such file or folder");
  EXPECT_EQ(ReadTextFile(*files_, "q:\\a", bytes).Reason(), "there is no drive q:");
}

TEST_F(TextFiles, GiveAllBytesAndAnEmptyFileIsNoFailure) {
  const std::string bytes("a\0\r\n\xFF", 5);
  EXPECT_TRUE(WriteTextFile(*files_, "c:\\a", bytes));
  std::string read;
  EXPECT_TRUE(ReadTextFile(*files_, "c:\\a", read));
  EXPECT_EQ(read, bytes);
  drives_.Write("empty", "");
  EXPECT_TRUE(ReadTextFile(*files_, "c:\\empty", read));
  EXPECT_EQ(read, "");
  EXPECT_EQ(LinesOf("c:\\empty"), Collection{});
}

TEST_F(TextFiles, OfMoreThan256MebibytesAreRefused) {
  drives_.Write("huge", "");
  std::filesystem::resize_file(drives_.C() / "huge", (std::uintmax_t{256} << 20) + 1);
  std::string bytes;
  EXPECT_EQ(ReadTextFile(*files_, "c:\\huge", bytes).Reason(), "too long for a text");
}

}  // namespace
}  // namespace qublet

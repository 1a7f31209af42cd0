#include <gtest/gtest.h>

#include "playlist/paths/text.h"
#include "support/cli_test_base.h"

namespace qublet {
namespace {

constexpr int kWrong = 2;

class PurgeCommandTest : public CliTestBase {
 protected:
  int Run(const Arguments& arguments) { return CliTestBase::Run("purge", arguments); }
  int Wrong(const Arguments& arguments) {
    const int code = Run(arguments);
    EXPECT_TRUE(Err().starts_with("qublet: purge: ")) << Err();
    EXPECT_EQ(Out(), "");
    return code;
  }
};

TEST_F(PurgeCommandTest, PrintsTheRowsThatRepeatAPath) {
  Touch({"a.mp3", "m/a.mp3", "b.mp3"});
  drives_.Write("list.m3u", "a.mp3\r\nm\\a.mp3\r\na.mp3\r\nb.mp3\r\na.mp3\r\n");
  EXPECT_EQ(Run({"--duplicates", "list.m3u"}), 0);
  EXPECT_EQ(Out(), "3\tc:\\a.mp3\n5\tc:\\a.mp3\n");
  EXPECT_EQ(Err(), "");
  EXPECT_EQ(Run({"--duplicates", "--by", "path", "--all", "list.m3u"}), 0);
  EXPECT_EQ(Out(), "1\tc:\\a.mp3\n3\tc:\\a.mp3\n5\tc:\\a.mp3\n");
  EXPECT_EQ(drives_.Read("list.m3u"), "a.mp3\r\nm\\a.mp3\r\na.mp3\r\nb.mp3\r\na.mp3\r\n");
}

TEST_F(PurgeCommandTest, ComparesByNameOrFolder) {
  Touch({"a.mp3", "m/a.mp3", "m/b.mp3"});
  EXPECT_EQ(Run({"--duplicates", "--by", "name", "c:\\"}), 0);
  EXPECT_EQ(Out(), "2\tc:\\m\\a.mp3\n");
  EXPECT_EQ(Run({"--by", "folder", "c:\\", "--duplicates"}), 0);
  EXPECT_EQ(Out(), "3\tc:\\m\\b.mp3\n");
  EXPECT_EQ(Run({"--duplicates", "c:\\"}), 0);
  EXPECT_EQ(Out(), "");
}

TEST_F(PurgeCommandTest, FoldsCaseWhenTold) {
  Touch({"m/a.mp3", "n/A.mp3"});
  EXPECT_EQ(Run({"--duplicates", "--by", "name", "c:\\"}), 0);
  EXPECT_EQ(Out(), "");
  EXPECT_EQ(Run({"--duplicates", "--by", "name", "--fold-case", "c:\\"}), 0);
  EXPECT_EQ(Out(), "2\tc:\\n\\A.mp3\n");
}

TEST_F(PurgeCommandTest, SavesTheListWithoutThem) {
  Touch({"a.mp3", "b.mp3"});
  drives_.Write("list.m3u", "a.mp3\r\nb.mp3\r\na.mp3\r\n");
  EXPECT_EQ(Run({"--duplicates", "--save", "out.m3u", "list.m3u"}), 0);
  EXPECT_EQ(Out() + Err(), "");
  EXPECT_EQ(drives_.Read("out.m3u"), "c:\\a.mp3\r\nc:\\b.mp3\r\n");
  EXPECT_EQ(Run({"--duplicates", "--all", "--relative", "--save", "rel.m3u", "list.m3u"}), 0);
  EXPECT_EQ(drives_.Read("rel.m3u"), "b.mp3\r\n");
}

TEST_F(PurgeCommandTest, ReplacesAPlaylistOnlyWhenTold) {
  Touch({"a.mp3"});
  drives_.Write("list.m3u", "a.mp3\r\ngone.mp3\r\n");
  EXPECT_EQ(Run({"--missing", "--save", "list.m3u", "list.m3u"}), 1);
  EXPECT_EQ(Err(), "qublet: list.m3u exists; --replace replaces it\n");
  EXPECT_EQ(drives_.Read("list.m3u"), "a.mp3\r\ngone.mp3\r\n");
  EXPECT_EQ(Run({"--missing", "--save", "list.m3u", "--replace", "list.m3u"}), 0);
  EXPECT_EQ(drives_.Read("list.m3u"), "c:\\a.mp3\r\n");
}

TEST_F(PurgeCommandTest, PrintsTheRowsWhoseFileIsMissing) {
  Touch({"a.mp3"});
  drives_.Write("list.m3u", "gone.mp3\r\na.mp3\r\nq:\\far.mp3\r\n");
  EXPECT_EQ(Run({"--missing", "list.m3u"}), 0);
  EXPECT_EQ(Out(), "1\tc:\\gone.mp3\n3\tq:\\far.mp3\n");
  EXPECT_EQ(Err(), "1 of them lie on places that aren't there now: q:\n");
  EXPECT_EQ(Run({"--missing", "--save", "out.m3u", "list.m3u"}), 0);
  EXPECT_EQ(Out(), "");
  EXPECT_EQ(Err(), "1 of them lie on places that aren't there now: q:\n");
  EXPECT_EQ(drives_.Read("out.m3u"), "c:\\a.mp3\r\n");
}

TEST_F(PurgeCommandTest, NothingFoundIsDone) {
  Touch({"a.mp3"});
  EXPECT_EQ(Run({"--missing", "a.mp3"}), 0);
  EXPECT_EQ(Out() + Err(), "");
  drives_.Write("list.m3u", "gone.mp3\r\n");
  EXPECT_EQ(Run({"--missing", "--save", "empty.m3u", "list.m3u"}), 0);
  EXPECT_EQ(drives_.Read("empty.m3u"), "");
  EXPECT_TRUE(std::filesystem::exists(drives_.C() / "empty.m3u"));
}

TEST_F(PurgeCommandTest, SavesNothingWhenAPathIsMissing) {
  Touch({"a.mp3"});
  drives_.Write("list.m3u", "a.mp3\r\na.mp3\r\n");
  EXPECT_EQ(Run({"--duplicates", "--save", "out.m3u", "list.m3u", "gone.m3u"}), 1);
  EXPECT_FALSE(std::filesystem::exists(drives_.C() / "out.m3u"));
  EXPECT_EQ(Run({"--duplicates", "list.m3u", "gone.m3u"}), 1);
  EXPECT_EQ(Out(), "2\tc:\\a.mp3\n");
  EXPECT_EQ(Err(), "qublet: gone.m3u: no such file or folder\n");
}

TEST_F(PurgeCommandTest, SaysWhatIsWrong) {
  Touch({"a.mp3"});
  EXPECT_EQ(Wrong({"a.mp3"}), kWrong);
  EXPECT_EQ(Wrong({"--duplicates", "--missing", "a.mp3"}), kWrong);
  EXPECT_EQ(Wrong({"--duplicates"}), kWrong);
  EXPECT_EQ(Wrong({"--duplicates", "--by", "size", "a.mp3"}), kWrong);
  EXPECT_EQ(Wrong({"--duplicates", "a.mp3", "--by"}), kWrong);
  EXPECT_EQ(Wrong({"--missing", "--by", "name", "a.mp3"}), kWrong);
  EXPECT_EQ(Wrong({"--missing", "--all", "a.mp3"}), kWrong);
  EXPECT_EQ(Wrong({"--missing", "--fold-case", "a.mp3"}), kWrong);
  EXPECT_EQ(Wrong({"--missing", "--relative", "a.mp3"}), kWrong);
  EXPECT_EQ(Wrong({"--missing", "--replace", "a.mp3"}), kWrong);
  EXPECT_EQ(Wrong({"--missing", "--save", "out.txt", "a.mp3"}), kWrong);
  EXPECT_EQ(Wrong({"--missing", "--save", "a.mp3"}), kWrong);
  EXPECT_EQ(Wrong({"--missing", "--unknown", "a.mp3"}), kWrong);
}

TEST_F(PurgeCommandTest, HelpNamesBothKinds) {
  EXPECT_EQ(CliTestBase::Run({"help"}), 0);
  EXPECT_TRUE(Contains(Out(), "\n  purge --duplicates [--by name|folder|path] [--fold-case] [--all]\n"));
  EXPECT_TRUE(Contains(Out(), "\n  purge --missing [--save OUT [--relative] [--replace]] PATH...\n"));
  EXPECT_TRUE(Contains(Out(), "\n  restore [--in FOLDER]... [--use-folders] [--save OUT "));
}

}  // namespace
}  // namespace qublet

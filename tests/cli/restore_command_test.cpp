#include <gtest/gtest.h>

#include "support/cli_test_base.h"

namespace qublet {
namespace {

constexpr int kWrong = 2;

// The drives are c:, d: and z:, which else leads to all of this machine.
class RestoreCommandTest : public CliTestBase {
 protected:
  void SetUp() override { drives_.AddDrive('z'); }

  int Run(Arguments arguments) {
    out_.str("");
    err_.str("");
    const std::unique_ptr<FileSystem> files = OpenFileSystem();
    PrintedDialogs dialogs(err_);
    Engine engine(fakes_.Over(*files, feedback_, dialogs), {"QUBLET2021", "c:\\program", ""}, ",");
    arguments.insert(arguments.begin(), "restore");
    return RunCommand(arguments, engine, dialogs, out_, err_);
  }
  void TouchOnD(const std::string& name) const { TemporaryDrives::WriteAt(drives_.D() / name, "abc"); }
};

TEST_F(RestoreCommandTest, PrintsWhereEachMissingFileIs) {
  Touch({"new/1.mp3", "new/2.mp3", "here.mp3"});
  TouchOnD("copy/1.mp3");
  TouchOnD("x/9.mp3");
  drives_.Write("list.m3u", "a\\1.mp3\r\nhere.mp3\r\nb\\9.mp3\r\na\\2.mp3\r\na\\3.mp3\r\nc\\7.mp3\r\n");
  EXPECT_EQ(Run({"list.m3u"}), 0);
  EXPECT_EQ(Out(),
            "c:\\a\\1.mp3\tc:\\new\\1.mp3\nc:\\b\\9.mp3\td:\\x\\9.mp3\nc:\\a\\2.mp3\tc:\\new\\2.mp3\n"
            "c:\\a\\3.mp3\t\nc:\\c\\7.mp3\t\n");
  EXPECT_EQ(Err(), "");
}

TEST_F(RestoreCommandTest, TakesTheFirstSuggestionOfEachFolder) {
  Touch({"one/1.mp3", "two/1.mp3", "two/2.mp3"});
  drives_.Write("list.m3u", "a\\1.mp3\r\na\\2.mp3\r\n");
  EXPECT_EQ(Run({"list.m3u"}), 0);
  EXPECT_EQ(Out(), "c:\\a\\1.mp3\tc:\\one\\1.mp3\nc:\\a\\2.mp3\t\n");
}

TEST_F(RestoreCommandTest, SearchesFoldersInPlaceOfTheDrives) {
  Touch({"new/1.mp3", "other/sub/1.mp3"});
  TouchOnD("1.mp3");
  drives_.Write("list.m3u", "a\\1.mp3\r\n");
  EXPECT_EQ(Run({"--in", "c:\\other", "list.m3u"}), 0);
  EXPECT_EQ(Out(), "c:\\a\\1.mp3\tc:\\other\\sub\\1.mp3\n");
  EXPECT_EQ(Run({"--in", "d:\\", "--in", "new", "list.m3u"}), 0);
  EXPECT_EQ(Out(), "c:\\a\\1.mp3\td:\\1.mp3\n");
  EXPECT_EQ(Run({"--in", "other", "list.m3u", "--in", "d:\\"}), 0);
  EXPECT_EQ(Out(), "c:\\a\\1.mp3\tc:\\other\\sub\\1.mp3\n");
}

TEST_F(RestoreCommandTest, WithFoldersAFullPathIsFoundNowhereElse) {
  Touch({"backup/a/1.mp3"});
  drives_.Write("list.m3u", "a\\1.mp3\r\n");
  EXPECT_EQ(Run({"--use-folders", "list.m3u"}), 0);
  EXPECT_EQ(Out(), "c:\\a\\1.mp3\t\n");
}

TEST_F(RestoreCommandTest, SavesTheListSoRestored) {
  Touch({"new/1.mp3", "here.mp3"});
  drives_.Write("list.m3u", "here.mp3\r\na\\1.mp3\r\na\\2.mp3\r\n");
  EXPECT_EQ(Run({"--save", "out.m3u", "list.m3u"}), 0);
  EXPECT_EQ(Out(), "c:\\a\\1.mp3\tc:\\new\\1.mp3\nc:\\a\\2.mp3\t\n");
  EXPECT_EQ(drives_.Read("out.m3u"), "c:\\here.mp3\r\nc:\\new\\1.mp3\r\na\\2.mp3\r\n");
  EXPECT_EQ(Run({"--save", "out.m3u", "list.m3u"}), 1);
  EXPECT_EQ(Err(), "qublet: out.m3u exists; --replace replaces it\n");
  EXPECT_EQ(Out(), "");
  EXPECT_EQ(Run({"--save", "list.m3u", "--replace", "--relative", "list.m3u"}), 0);
  EXPECT_EQ(drives_.Read("list.m3u"), "here.mp3\r\nnew\\1.mp3\r\na\\2.mp3\r\n");
}

TEST_F(RestoreCommandTest, NothingMissingIsDoneAtOnce) {
  Touch({"1.mp3"});
  EXPECT_EQ(Run({"1.mp3"}), 0);
  EXPECT_EQ(Out() + Err(), "");
  EXPECT_EQ(std::ranges::count(feedback_.activities, "d:\\"), 0);
}

TEST_F(RestoreCommandTest, AFolderThatIsntThereEndsIt) {
  Touch({"new/1.mp3"});
  drives_.Write("list.m3u", "a\\1.mp3\r\n");
  for (const char* folder : {"gone", "q:\\", "new/1.mp3"}) {
    EXPECT_EQ(Run({"--in", folder, "--in", "new", "--save", "out.m3u", "list.m3u"}), 1);
    EXPECT_TRUE(Err().starts_with(std::string("qublet: ") + folder + ": ")) << Err();
    EXPECT_EQ(Out(), "");
  }
  EXPECT_FALSE(std::filesystem::exists(drives_.C() / "out.m3u"));
}

TEST_F(RestoreCommandTest, SavesNothingWhenAPathIsMissing) {
  Touch({"new/1.mp3"});
  drives_.Write("list.m3u", "a\\1.mp3\r\n");
  EXPECT_EQ(Run({"--save", "out.m3u", "list.m3u", "gone.m3u"}), 1);
  EXPECT_FALSE(std::filesystem::exists(drives_.C() / "out.m3u"));
  EXPECT_EQ(Run({"list.m3u", "gone.m3u"}), 1);
  EXPECT_EQ(Out(), "c:\\a\\1.mp3\tc:\\new\\1.mp3\n");
}

TEST_F(RestoreCommandTest, SaysWhatIsWrong) {
  Touch({"1.mp3"});
  const Arguments wrong[] = {{},
                             {"--use-folders"},
                             {"1.mp3", "--in"},
                             {"--unknown", "1.mp3"},
                             {"--replace", "1.mp3"},
                             {"--relative", "1.mp3"},
                             {"--save", "out.pls", "1.mp3"}};
  for (const Arguments& arguments : wrong) {
    EXPECT_EQ(Run(arguments), kWrong);
    EXPECT_TRUE(Err().starts_with("qublet: restore: ")) << Err();
  }
}

}  // namespace
}  // namespace qublet

#include "cli/plugins_command.h"

#include <gtest/gtest.h>

#include "support/cli_test_base.h"

namespace qublet {
namespace {

class PluginsCommandTest : public CliTestBase {
 protected:
  PluginsCommandTest() {
    std::filesystem::create_directory(drives_.C() / "program");
    Touch({"m/1.mp3", "m/2.mp3", "tools/tool.exe"});
  }

  int Plugins(const Arguments& arguments) { return Run("plugins", arguments); }
  void Enter(const std::string& slot, const std::string& name, const std::string& description,
             const std::string& path) {
    fakes_.store.SaveSettings("Velmora Plugins",
                              {{slot, "name", name}, {slot, "desc", description}, {slot, "insl", path}});
  }
};

TEST_F(PluginsCommandTest, PrintsNothingWhereThereAreNone) {
  for (const Arguments& arguments : {Arguments{}, {"list"}}) {
    EXPECT_EQ(Plugins(arguments), 0);
    EXPECT_EQ(Out() + Err(), "");
  }
}

TEST_F(PluginsCommandTest, PrintsALineForEach) {
  Enter("2", "Tool", "does this", " c:\\tools\\tool.exe ");
  Enter("9", "Ta\tb & c", "", "");
  for (const Arguments& arguments : {Arguments{}, {"list"}}) {
    EXPECT_EQ(Plugins(arguments), 0);
    EXPECT_EQ(Out(), "2\tTool\tdoes this\tc:\\tools\\tool.exe\n9\tTa b & c\t\t\n");
  }
}

TEST_F(PluginsCommandTest, HandsOverTheRows) {
  Enter("2", "Tool", "", "c:\\tools\\tool.exe");
  EXPECT_EQ(Plugins({"run", "2", "m", "c:\\m\\1.mp3"}), 0);
  EXPECT_EQ(drives_.Read("program/tmp.m3u"), "c:\\m\\1.mp3\r\nc:\\m\\2.mp3\r\nc:\\m\\1.mp3\r\n");
  EXPECT_EQ(fakes_.shell.started,
            std::vector{"c:\\tools\\tool.exe <" + files_->ToNative("c:\\program\\tmp.m3u") + ">"});
  EXPECT_EQ(Out() + Err(), "");
}

TEST_F(PluginsCommandTest, SaysWhatCantBeDone) {
  Enter("2", "Tool", "", "c:\\tools\\gone.exe");
  EXPECT_EQ(Plugins({"run", "2", "m"}), 1);
  EXPECT_EQ(Err(), "qublet: Could not load the Tool Plugin.\n");
  EXPECT_EQ(Plugins({"run", "3", "m"}), 1);
  EXPECT_EQ(Err(), "qublet: Could not load the  Plugin.\n");
  Enter("2", "Tool", "", "c:\\tools\\tool.exe");
  std::filesystem::remove(drives_.C() / "program");
  EXPECT_EQ(Plugins({"run", "2", "m"}), 1);
  EXPECT_EQ(Err(), "qublet: Failed to create temp file for plugin transaction.\n");
  EXPECT_TRUE(fakes_.shell.started.empty());
}

TEST_F(PluginsCommandTest, HandsOverWhatIsThereAndTellsWhatIsMissing) {
  Enter("2", "Tool", "", "c:\\tools\\tool.exe");
  EXPECT_EQ(Plugins({"run", "2", "gone.mp3", "c:\\m\\2.mp3"}), 1);
  EXPECT_EQ(Err(), "qublet: gone.mp3: no such file or folder\n");
  EXPECT_EQ(drives_.Read("program/tmp.m3u"), "c:\\m\\2.mp3\r\n");
  EXPECT_EQ(fakes_.shell.started.size(), 1u);
}

TEST_F(PluginsCommandTest, StartsNothingWhereNoneOfThePathsIsThere) {
  Enter("2", "Tool", "", "c:\\tools\\tool.exe");
  EXPECT_EQ(Plugins({"run", "2", "gone.mp3"}), 1);
  EXPECT_EQ(Err(), "qublet: gone.mp3: no such file or folder\n");
  EXPECT_TRUE(fakes_.shell.started.empty());
}

TEST_F(PluginsCommandTest, WantsANumberOfOneToNine) {
  for (const char* number : {"0", "10", "-1", "x", "", "1x", "65537"}) {
    EXPECT_EQ(Plugins({"run", "--", number, "m"}), 2) << number;
    EXPECT_EQ(Err(), std::string("qublet: plugins: a number of 1 to 9 is wanted: ") + number + "\n");
  }
}

TEST_F(PluginsCommandTest, ShowsItsUseForAnythingElse) {
  for (const Arguments& arguments : {Arguments{"run"}, {"run", "1"}, {"list", "1"}, {"start", "1", "m"}}) {
    EXPECT_EQ(Plugins(arguments), 2);
    EXPECT_EQ(Err(), "qublet: plugins: list, or run with a number and a path, is wanted\n");
  }
  EXPECT_EQ(Plugins({"--all"}), 2);
  EXPECT_EQ(Err(), "qublet: plugins: unknown option --all\n");
}

}  // namespace
}  // namespace qublet

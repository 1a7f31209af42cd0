#include <gtest/gtest.h>

#include <array>

#include "generators/disc/disc_icons.h"
#include "generators/disc/icon_file.h"
#include "support/cli_test_base.h"

namespace qublet {
namespace {

class DiscCommandTest : public CliTestBase {
 protected:
  DiscCommandTest() {
    drives_.Write("discs/mine/one.mp3", "music");
    drives_.Write("discs/mine/album/two.mp3", "music");
  }
  int Run(Arguments arguments) { return CliTestBase::Run("disc", std::move(arguments)); }
  int Build(Arguments arguments) {
    arguments.insert(arguments.begin(), "build");
    arguments.emplace_back("c:\\discs\\mine");
    return Run(arguments);
  }
  std::string Made(const std::string& name) const { return drives_.Read("discs/mine/" + name); }
};

TEST_F(DiscCommandTest, SaysNothingOfAFolderThatFits) {
  EXPECT_EQ(Run({"check", "c:\\discs\\mine"}), 0);
  EXPECT_EQ(Run({"check", "--capacity", "0", files_->ToNative("c:\\discs\\mine")}), 0);
  EXPECT_EQ(Out() + Err(), "");
}

TEST_F(DiscCommandTest, SaysWhyAFolderDoesNotFit) {
  EXPECT_EQ(Run({"check", "--capacity", "15", "c:\\discs\\mine"}), 1);
  EXPECT_EQ(Err(),
            "The total size of all the files is 1,024 Kb more than the capacity of the CD-ROM!\n"
            "Remove some of the files and try again...\n");
  EXPECT_EQ(Run({"check", "--capacity", "10", "c:\\discs\\mine"}), 1);
  EXPECT_EQ(Err(), "no answer for this size\n");
  std::filesystem::create_directories(drives_.C() / "empty");
  EXPECT_EQ(Run({"check", "c:\\empty"}), 1);
  EXPECT_EQ(Err(), "You must add at least one file to the compilation.\n");
}

TEST_F(DiscCommandTest, RefusesWrongUse) {
  EXPECT_EQ(Run({}), 2);
  EXPECT_EQ(Run({"burn", "c:\\discs\\mine"}), 2);
  EXPECT_EQ(Run({"check"}), 2);
  EXPECT_EQ(Run({"check", "c:\\discs\\mine", "c:\\discs"}), 2);
  EXPECT_EQ(Run({"check", "--capacity", "16", "c:\\discs\\mine"}), 2);
  EXPECT_EQ(Run({"check", "--capacity", "-1", "c:\\discs\\mine"}), 2);
  EXPECT_EQ(Run({"check", "--capacity", "big", "c:\\discs\\mine"}), 2);
  EXPECT_EQ(Run({"build"}), 2);
  EXPECT_EQ(Run({"build", "--burn", "c:\\discs\\mine"}), 2);
  EXPECT_EQ(Run({"build", "c:\\"}), 2);
  EXPECT_EQ(Run({"check", "c:\\none"}), 1);
  EXPECT_EQ(Run({"build", "c:\\discs\\mine\\one.mp3"}), 1);
}

TEST_F(DiscCommandTest, BuildsADiscAndTellsItsWay) {
  EXPECT_EQ(Build({"--table", "--autorun", "--auto-icon", "7", "--auto-list"}), 0) << Err();
  EXPECT_EQ(Out(),
            "Copying MP3 browser Software...\nCreating a table of MP3 Data...\nCreating the Autorun file...\n"
            "Creating CD playlist...\nBuilding list of files to be copied...\nSaving your settings...\n"
            "Done: The process completed successfully.\n");
  EXPECT_EQ(Made("setup.ico"), DiscIcon(7));
  EXPECT_EQ(Made("playlist.m3u"), "one.mp3\r\nalbum\\two.mp3\r\n");
  EXPECT_EQ(Made("autorun.inf"), "[autorun]\r\nicon=setup.ico\r\nopen=start playlist.m3u\r\n");
  EXPECT_NE(Made("MP3Index.htm").find("<title>mine - Created: "), std::string::npos);
  EXPECT_TRUE(fakes_.store.AllSettings("QUBLET2021").empty());
}

TEST_F(DiscCommandTest, TakesAFolderWithOrWithoutItsLastBackslash) {
  EXPECT_EQ(Run({"build", "c:\\discs\\mine\\"}), 0) << Err();
  EXPECT_EQ(Run({"build", "c:\\discs\\mine"}), 0) << Err();
}

TEST_F(DiscCommandTest, TakesWhatDependsOnOthersWithoutEffect) {
  EXPECT_EQ(Build({"--auto-list", "--auto-index", "--auto-icon", "1"}), 0);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(drives_.C() / "discs/mine"), {}), 2);
  EXPECT_EQ(Build({"--autorun", "--auto-index"}), 0);
  EXPECT_EQ(Made("autorun.inf"), "");
}

TEST_F(DiscCommandTest, FailsWithoutTheBrowserProgramAndMakesNothing) {
  EXPECT_EQ(Build({"--browser", "--table"}), 1);
  EXPECT_NE(Out().find("Done: Process failed, any files created were removed.\n"), std::string::npos);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(drives_.C() / "discs/mine"), {}), 2);
  drives_.Write("program/QUBBROWS.exe", "browser");
  EXPECT_EQ(Build({"--browser"}), 0);
  EXPECT_EQ(Made("qubbrows.exe"), "browser");
}

TEST_F(DiscCommandTest, TakesAnIconFileOfTheUsers) {
  const IconPicture red{16, 16, std::vector<std::uint32_t>(256, 0xFFFF0000)};
  const std::string bytes = IconFileOf(std::array{red}).value();
  drives_.Write("my.ico", bytes + "behind");
  EXPECT_EQ(Build({"--autorun", "--auto-icon", "c:\\my.ico"}), 0) << Err();
  EXPECT_EQ(Made("setup.ico"), bytes + "behind");
  drives_.Write("my.bin", bytes + "behind");
  EXPECT_EQ(Build({"--autorun", "--auto-icon", "c:\\my.bin"}), 0);
  EXPECT_EQ(Made("setup.ico"), bytes);
}

TEST_F(DiscCommandTest, RefusesAnIconThatCannotBeRead) {
  drives_.Write("bad.ico", "bad");
  EXPECT_EQ(Build({"--autorun", "--auto-icon", "c:\\bad.ico"}), 1);
  EXPECT_EQ(Err(), "qublet: c:\\bad.ico: it is no icon that can be read\n");
  EXPECT_EQ(Build({"--autorun", "--auto-icon", "51"}), 1);
  EXPECT_EQ(Made("playlist.m3u"), "");
}

}  // namespace
}  // namespace qublet

#include "player/player_link.h"

#include <gtest/gtest.h>

#include "support/fake_services.h"
#include "support/temporary_drives.h"

namespace qublet {
namespace {

class PlayerLinkTest : public testing::Test {
 protected:
  PlayerLinkTest() { std::filesystem::create_directory(drives_.C() / "program"); }

  bool Detect(const std::string& program, bool player = false) {
    associations_.program = {program, "id", player};
    return link_.DetectPlayer();
  }

  TemporaryDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
  Document document_;
  Feedback feedback_;
  FakeServices fakes_;
  FakeAssociations& associations_ = fakes_.associations;
  FakePlayerWindows& players_ = fakes_.players;
  PlayerLink link_{document_, fakes_.Over(*files_, feedback_), "c:\\program"};
};

TEST_F(PlayerLinkTest, KnowsThePlayerByItsPathInAnyCaseAndInAFolder) {
  for (const std::string program : {"C:\\Program Files\\WinAmp\\player.exe", "c:\\winamp.exe", "d:\\STUDIO.EXE",
                                    "d:\\Studio Tools\\play.exe", "z:\\usr\\bin\\mystudio2"})
    EXPECT_TRUE(Detect(program)) << program;
  for (const std::string program : {"c:\\program files\\mpv\\mpv.exe", "d:\\stud io.exe", "d:\\win amp.exe", ""})
    EXPECT_FALSE(Detect(program)) << program;
}

TEST_F(PlayerLinkTest, KnowsThePlayerByWhatTheSystemKnowsOfIt) {
  EXPECT_TRUE(Detect("z:\\usr\\bin\\mpv", true));
  EXPECT_EQ(document_.WinampBookmarkFile, "") << "only that one player has such a file";
}

TEST_F(PlayerLinkTest, PutsTheBookmarkFileBesideThePlayer) {
  EXPECT_TRUE(Detect("C:\\Program Files\\Winamp\\Winamp.exe"));
  EXPECT_EQ(document_.WinampBookmarkFile, "c:\\program files\\winamp\\winamp.bm");
}

TEST_F(PlayerLinkTest, KeepsAKnownBookmarkFile) {
  document_.WinampBookmarkFile = "d:\\own.bm";
  EXPECT_TRUE(Detect("c:\\winamp\\winamp.exe"));
  EXPECT_EQ(document_.WinampBookmarkFile, "d:\\own.bm");
}

TEST_F(PlayerLinkTest, LeavesTheBookmarkFileAloneForAnotherProgram) {
  EXPECT_FALSE(Detect("c:\\mpv.exe"));
  EXPECT_EQ(document_.WinampBookmarkFile, "");
}

TEST_F(PlayerLinkTest, MakesAFileToAskAboutWhenThereIsNone) {
  Detect("");
  EXPECT_EQ(drives_.Read("program/tmp.m3u"), "#\r\n");
  EXPECT_EQ(associations_.asked, std::vector<std::string>{"c:\\program\\tmp.m3u"});
}

TEST_F(PlayerLinkTest, LeavesAnExistingFileAsItIs) {
  drives_.Write("program/tmp.m3u", "c:\\a.mp3\r\n");
  Detect("");
  EXPECT_EQ(drives_.Read("program/tmp.m3u"), "c:\\a.mp3\r\n");
}

TEST_F(PlayerLinkTest, AsksEvenWhenTheFileCannotBeMade) {
  std::filesystem::remove(drives_.C() / "program");
  EXPECT_TRUE(Detect("c:\\winamp.exe"));
}

TEST_F(PlayerLinkTest, FindsTheProgramThatOpensPlaylistsIfItRuns) {
  associations_.program = {"c:\\mpv.exe", "mpv", true};
  EXPECT_EQ(link_.FindPlayerWindow(), "");
  players_.running = ":1.7";
  EXPECT_EQ(link_.FindPlayerWindow(), ":1.7");
  EXPECT_EQ(link_.PlayerWindow, ":1.7");
  players_.running = "";
  EXPECT_EQ(link_.FindPlayerWindow(), "");
  EXPECT_EQ(link_.PlayerWindow, "") << "a player that has ended isn't kept";
  EXPECT_EQ(players_.wanted, (std::vector<std::string>{"mpv", "mpv", "mpv"}));
}

}  // namespace
}  // namespace qublet

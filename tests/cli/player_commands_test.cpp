#include <gtest/gtest.h>

#include "support/cli_test_base.h"

namespace qublet {
namespace {

class PlayerCommandsTest : public CliTestBase {
 protected:
  PlayerCommandsTest() {
    drives_.Write("m/1.mp3", "abc");
    drives_.Write("m/2.mp3", "abcdef");
    std::filesystem::create_directory(drives_.C() / "program");
    associations_.program = {"c:\\mpv", "mpv", true};
  }

  int Play(const Arguments& arguments) { return Run("play", arguments); }
  int Player(const Arguments& arguments) { return Run("player", arguments); }
  int Properties(const Arguments& arguments) { return Run("properties", arguments); }

  ScriptedShell& shell_ = fakes_.shell;
  FakeAssociations& associations_ = fakes_.associations;
  FakePlayerWindows& players_ = fakes_.players;
};

TEST_F(PlayerCommandsTest, PlayOpensWhatThePathsHold) {
  EXPECT_EQ(Play({"c:\\m\\2.mp3", "m"}), 0);
  EXPECT_EQ(drives_.Read("program/tmp.m3u"), "c:\\m\\2.mp3\r\nc:\\m\\1.mp3\r\nc:\\m\\2.mp3\r\n");
  EXPECT_EQ(shell_.opened, std::vector<std::string>{"c:\\program\\tmp.m3u"});
  EXPECT_EQ(err_.str(), "");
}

TEST_F(PlayerCommandsTest, PlaySaysWhatIsMissingAndPlaysTheRest) {
  EXPECT_EQ(Play({"gone.mp3", "m"}), 1);
  EXPECT_EQ(err_.str(), "qublet: gone.mp3: no such file or folder\n");
  EXPECT_EQ(shell_.opened.size(), 1U);
}

TEST_F(PlayerCommandsTest, PlaySaysWhenAllFilesOfAPlaylistAreMissing) {
  drives_.Write("list.m3u", "c:\\gone.mp3\r\n");
  EXPECT_EQ(Play({"list.m3u"}), 1);
  EXPECT_EQ(err_.str(),
            "qublet: You cannot preview the item(s) because they are pointed to incorrectly.\n"
            "Use 'Purge Playlist Entries' to remove or relocate the missing items..\n");
  EXPECT_TRUE(shell_.opened.empty());
}

TEST_F(PlayerCommandsTest, PlaySaysWhenNoProgramOpensPlaylists) {
  associations_.program = {};
  EXPECT_EQ(Play({"m"}), 1);
  EXPECT_EQ(err_.str(), "qublet: play: no program opens playlists here\n");
  EXPECT_TRUE(shell_.opened.empty());
}

TEST_F(PlayerCommandsTest, PlaySaysWhenNoProgramCouldBeStarted) {
  shell_.opens = false;
  EXPECT_EQ(Play({"m"}), 1);
  EXPECT_EQ(err_.str(), "qublet: play: no program could be started\n");
}

TEST_F(PlayerCommandsTest, PlayAndPropertiesWantPathsAndNoOptions) {
  EXPECT_EQ(Play({}), 2);
  EXPECT_EQ(err_.str(), "qublet: play: a path is wanted\n");
  EXPECT_EQ(Play({"--loud", "m"}), 2);
  EXPECT_EQ(err_.str(), "qublet: play: unknown option --loud\n");
  EXPECT_EQ(Properties({}), 2);
  EXPECT_EQ(Properties({"-x"}), 2);
}

TEST_F(PlayerCommandsTest, PlayerTellsWhatItDoes) {
  players_.running = ":1.5";
  players_.state = kPlaying;
  players_.position = 83042;
  EXPECT_EQ(Player({}), 0);
  EXPECT_EQ(out_.str(), "program\tc:\\mpv\nstate\tplaying\nposition\t83.042\n");
  players_.state = kPaused;
  players_.position = 7;
  EXPECT_EQ(Player({"status"}), 0);
  EXPECT_EQ(out_.str(), "program\tc:\\mpv\nstate\tpaused\nposition\t0.007\n");
  players_.state = kStopped;
  players_.position = -1;
  EXPECT_EQ(Player({"status"}), 0);
  EXPECT_EQ(out_.str(), "program\tc:\\mpv\nstate\tstopped\n");
}

TEST_F(PlayerCommandsTest, PlayerStopsAndJumps) {
  players_.running = ":1.5";
  EXPECT_EQ(Player({"stop"}), 0);
  EXPECT_EQ(Player({"jump", "90.5"}), 0);
  EXPECT_EQ(Player({"jump", "0"}), 0);
  EXPECT_EQ(players_.calls, (std::vector<std::string>{"stop :1.5", "jump :1.5 90500", "jump :1.5 0"}));
}

TEST_F(PlayerCommandsTest, PlayerSaysWhenNoneRuns) {
  EXPECT_EQ(Player({"stop"}), 1);
  EXPECT_EQ(err_.str(), "qublet: player: c:\\mpv doesn't run\n");
  associations_.program = {};
  EXPECT_EQ(Player({}), 1);
  EXPECT_EQ(err_.str(), "qublet: player: no program opens playlists here\n");
}

TEST_F(PlayerCommandsTest, PlayerShowsItsUseForAnythingElse) {
  players_.running = ":1.5";
  for (const Arguments& arguments : std::vector<Arguments>{{"jump"}, {"stop", "1"}, {"jump", "1", "2"}, {"pause"}}) {
    EXPECT_EQ(Player(arguments), 2);
    EXPECT_EQ(err_.str(), "qublet: player: status, stop or jump SECONDS is wanted\n");
  }
  for (const char* time : {"-1", "soon", "", "1e9", "nan"}) {
    EXPECT_EQ(Player({"jump", time}), 2);
    EXPECT_EQ(err_.str(), std::string("qublet: player: no time in seconds: ") + time + "\n");
  }
  EXPECT_TRUE(players_.calls.empty());
}

TEST_F(PlayerCommandsTest, PropertiesSumUpAPlaylist) {
  drives_.Write("list.m3u", "m\\1.mp3\r\nm\\2.mp3\r\nm\\gone.mp3\r\n");
  EXPECT_EQ(Properties({"list.m3u"}), 0);
  EXPECT_EQ(out_.str(),
            "Playlist filename:\tlist.m3u\nSize on disk:\t39 bytes\nRelative Folder:\tc:\\m\\\nOpens with:\tmpv\n"
            "File count:\t3 items\nFolders pointed to:\t1 folder\nTotal size of items:\t>9 bytes\n"
            "Files missing:\t1 item\nPlaying time:\t????\nAv. track length:\t????\nAv. track size:\t>5 Bytes\n"
            "' > ' sign indicates 'More than'..\n");
}

TEST_F(PlayerCommandsTest, PropertiesOfAFolderAreThoseOfAnUnsavedPlaylist) {
  EXPECT_EQ(Properties({"m"}), 0);
  EXPECT_TRUE(out_.str().starts_with("Playlist filename:\t'Unsaved Playlist'\n"));
}

TEST_F(PlayerCommandsTest, PropertiesOfNothingAreNone) {
  EXPECT_EQ(Properties({"gone"}), 1);
  EXPECT_EQ(out_.str(), "");
  EXPECT_EQ(err_.str(), "qublet: gone: no such file or folder\n");
}

}  // namespace
}  // namespace qublet

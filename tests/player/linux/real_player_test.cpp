#include <gtest/gtest.h>

#include "platform/linux/desktop_entry.h"
#include "platform/startup_entry.h"
#include "player/player_link.h"
#include "player/position_jump.h"
#include "player/preview.h"
#include "playlist/items.h"
#include "playlist/m3u_lines.h"
#include "playlist/paths/text_files.h"
#include "support/real_player_test_base.h"

namespace qublet {
namespace {

// The whole way with a real player: rows, temporary playlist, association, start, steering.
class RealPlayer : public RealPlayerTestBase {
 protected:
  // What the player with that place has played, in order.
  std::vector<std::string> Played(std::size_t place = 0) const {
    std::vector<std::string> played;
    const std::vector<pid_t> numbers = Numbers();
    if (place >= numbers.size()) return played;
    std::istringstream lines(TemporaryDrives::ReadAt(Root() / ("log." + std::to_string(numbers[place]))));
    for (std::string line; std::getline(lines, line);) {
      const std::size_t at = line.find("[cplayer] Playing: ");
      // The list itself comes first.
      if (at != line.npos && !line.ends_with(".m3u8")) played.push_back(line.substr(at + 19));
    }
    return played;
  }

  // Makes a file and its row.
  void Add(const std::string& path, double seconds, bool selected = false) {
    TemporaryDrives::WriteAt(files_->ToNative(path), WavOf(seconds));
    EXPECT_TRUE(items_.AddFile(path, 0, 0));
    document_.ListView1.SetSelected(document_.ListView1.Count(), selected);
  }

  void Play(std::int16_t mode) {
    preview_.PrevM3U(mode);
    EXPECT_TRUE(dialogs_.messages.empty());
  }

  std::vector<std::string> Native(const std::vector<std::string>& paths) const {
    std::vector<std::string> native;
    for (const std::string& path : paths) native.push_back(files_->ToNative(path));
    return native;
  }

  // The player's end of the list shows by its having played as many.
  void ExpectPlayed(const std::vector<std::string>& paths, std::size_t place = 0) {
    Eventually([&] { return Played(place).size() >= paths.size() && Idle(); });
    EXPECT_EQ(Played(place), Native(paths));
  }
  bool Idle() {
    const PlayerHandle player = link_.FindPlayerWindow();
    return !player.empty() && players_->State(player) == kStopped;
  }

  PlayerHandle WaitForPlaying() {
    PlayerHandle player;
    EXPECT_TRUE(Eventually([&] {
      player = link_.FindPlayerWindow();
      return !player.empty() && players_->State(player) == kPlaying && players_->Position(player) > 0;
    }));
    return player;
  }

  Document document_;
  Feedback feedback_;
  MainView view_;
  Services services_{*files_,         fakes_.store,         fakes_.startup, dialogs_,  fakes_.clock, *shell_,
                     fakes_.random,   *fakes_.collation,    *associations_, *players_, fakes_.power, feedback_,
                     *fakes_.sockets, fakes_.machine_values};
  Items items_{document_, *files_, feedback_, view_, ","};
  PlayerLink link_{document_, services_, "c:\\program"};
  Preview preview_{document_, services_, "c:\\program"};
};

TEST_F(RealPlayer, IsKnownByItsEntry) {
  EXPECT_TRUE(link_.DetectPlayer());
  EXPECT_EQ(document_.WinampBookmarkFile, "");
  EXPECT_EQ(associations_->FindAssociatedProgram("c:\\program\\tmp.m3u"),
            files_->FromNative((desktop_.Programs() / "mpv").string()));
}

TEST_F(RealPlayer, IsFoundUnderAnIdThatOnlyEndsInItsName) {
  std::filesystem::remove(desktop_.Data() / "applications/mpv.desktop");
  InstallAs("--idle=yes", "io.github.Mpv");
  Add("c:\\long.wav", 100);
  Play(kPlayList);
  EXPECT_NE(WaitForPlaying(), "");
}

TEST_F(RealPlayer, IsFoundByItsExecutableUnderAnotherName) {
  std::filesystem::remove(desktop_.Data() / "applications/mpv.desktop");
  TemporaryDesktop::AddEntry(desktop_.Data(), "videos",
                             std::string("Exec=") + QUBLET_REAL_PLAYER +
                                 " --no-terminal --ao=null --no-video -- %U\nMimeType=audio/x-mpegurl;\n");
  Add("c:\\long.wav", 100);
  Play(kPlayList);
  const PlayerHandle player = WaitForPlaying();
  EXPECT_NE(player, "");
  players_->Stop(player);
  EXPECT_TRUE(Eventually([&] { return link_.FindPlayerWindow().empty(); })) << "a stop ends it";
}

TEST_F(RealPlayer, PlaysTheListInItsOrder) {
  Add("c:\\m\\b \u0414\u0430 #1.wav", 0.2);
  Add("d:\\a & 100%.wav", 0.2);
  Add("c:\\m\\b \u0414\u0430 #1.wav", 0.2);
  Play(kPlayList);
  ExpectPlayed({"c:\\m\\b \u0414\u0430 #1.wav", "d:\\a & 100%.wav", "c:\\m\\b \u0414\u0430 #1.wav"});
}

TEST_F(RealPlayer, PlaysNamesThatSomePlayersTakeForAddresses) {
  const std::vector<std::string> paths{"c:\\hash#1.wav", "c:\\pct%41.wav", "d:\\q?x.wav"};
  for (const std::string& path : paths) Add(path, 0.2);
  Play(kPlayList);
  ExpectPlayed(paths);
}

TEST_F(RealPlayer, PlaysTheLastListAtLogon) {
  const std::vector<std::string> paths{"c:\\b \u0414\u0430 #1.wav", "d:\\a.wav"};
  for (const std::string& path : paths) TemporaryDrives::WriteAt(files_->ToNative(path), WavOf(0.2));
  desktop_.AddProgram("xdg-open", "exec mpv --idle=yes -- \"$@\"\n");
  const std::unique_ptr<StartupEntries> entries = OpenStartupEntries(*files_);
  const std::string last = "c:\\program\\last.m3u";
  ASSERT_TRUE(WriteLinesToFile(*files_, last, paths));
  ASSERT_TRUE(WriteHandOver(*files_, entries->FileToOpen(last), paths));
  entries->Set("last", last);
  // What the desktop makes of an Exec line without escapes is what a shell does.
  const std::string entry = ReadGroups((desktop_.Config() / "autostart/last.desktop").string());
  const ChildProcess session({"/bin/sh", "-c", ValueOf(entry, "Desktop Entry", "Exec")});
  ExpectPlayed(paths);
}

TEST_F(RealPlayer, PlaysTheSelectedRows) {
  Add("c:\\3.wav", 0.2, true);
  Add("c:\\2.wav", 0.2);
  Add("c:\\1.wav", 0.2, true);
  Play(kPlaySelected);
  ExpectPlayed({"c:\\3.wav", "c:\\1.wav"});
}

TEST_F(RealPlayer, PlaysTheFoldersOfTheSelectedRows) {
  Add("c:\\z\\2.wav", 0.2, true);
  Add("c:\\a\\1.wav", 0.2, true);
  Add("c:\\m\\5.wav", 0.2);
  TemporaryDrives::WriteAt(Root() / "c/z/not listed.wav", WavOf(0.2));
  Play(kPlayFolder);
  ExpectPlayed({"c:\\z\\2.wav", "c:\\z\\not listed.wav", "c:\\a\\1.wav"});
}

TEST_F(RealPlayer, PlaysFromTheFirstSelectedRow) {
  Add("c:\\4.wav", 0.2);
  Add("c:\\3.wav", 0.2, true);
  Add("c:\\2.wav", 0.2);
  Add("c:\\1.wav", 0.2, true);
  Play(kPlayFrom);
  ExpectPlayed({"c:\\3.wav", "c:\\2.wav", "c:\\1.wav"});
}

TEST_F(RealPlayer, TellsItsStateAndPositionJumpsAndStops) {
  Add("c:\\long.wav", 100);
  Play(kPlayList);
  const PlayerHandle player = WaitForPlaying();

  players_->Jump(player, 60000);
  EXPECT_TRUE(Eventually([&] { return players_->Position(player) >= 60000 - 500; }));
  EXPECT_LE(players_->Position(player), 60000 + 500);
  players_->Jump(player, 5000);
  EXPECT_TRUE(Eventually([&] { return players_->Position(player) <= 5000 + 500; }));
  EXPECT_GE(players_->Position(player), 5000 - 500);
  EXPECT_EQ(players_->State(player), kPlaying);

  players_->Stop(player);
  EXPECT_TRUE(Eventually([&] { return players_->State(player) == kStopped; }));
  EXPECT_EQ(players_->Position(player), -1);
}

TEST_F(RealPlayer, JumpsInTheTrackThatPlaysNowAlsoBehindTheFirst) {
  Add("c:\\short.wav", 0.2);
  Add("c:\\long.wav", 100);
  Play(kPlayList);
  const PlayerHandle player = WaitForPlaying();
  EXPECT_TRUE(Eventually([&] { return Played().size() == 2 && players_->Position(player) > 0; }));
  players_->Jump(player, 30000);
  EXPECT_TRUE(Eventually([&] { return players_->Position(player) >= 30000 - 500; }));
  EXPECT_LE(players_->Position(player), 30000 + 500);
}

TEST_F(RealPlayer, EndsWithAStopWhereItIsSetUpSo) {
  InstallAs("");
  Add("c:\\long.wav", 100);
  Play(kPlayList);
  const PlayerHandle player = WaitForPlaying();
  players_->Stop(player);
  EXPECT_TRUE(Eventually([&] { return link_.FindPlayerWindow().empty(); }));
  EXPECT_EQ(players_->State(player), kStopped);
  EXPECT_EQ(players_->Position(player), -1);
  players_->Jump(player, 1000);
}

TEST_F(RealPlayer, IsTheInstanceThatPlays) {
  Add("c:\\long.wav", 100);
  Play(kPlayList);
  const PlayerHandle first = WaitForPlaying();
  players_->Stop(first);
  EXPECT_TRUE(Eventually([&] { return players_->State(first) == kStopped; }));
  Play(kPlayList);
  const PlayerHandle second = WaitForPlaying();
  EXPECT_NE(second, first);
  EXPECT_EQ(Numbers().size(), 2U);

  // Without one that plays it is the newest.
  players_->Stop(second);
  EXPECT_TRUE(Eventually([&] { return players_->State(second) == kStopped; }));
  EXPECT_EQ(link_.FindPlayerWindow(), second);
}

TEST_F(RealPlayer, MayQuitInBetween) {
  Add("c:\\long.wav", 100);
  Play(kPlayList);
  const PlayerHandle player = WaitForPlaying();
  kill(Numbers().at(0), SIGTERM);
  EXPECT_TRUE(Eventually([&] { return link_.FindPlayerWindow().empty(); }));
  EXPECT_EQ(players_->State(player), kStopped);
  EXPECT_EQ(players_->Position(player), -1);
  players_->Jump(player, 1000);
  players_->Stop(player);
  Play(kPlayList);
  EXPECT_NE(WaitForPlaying(), player);
}

TEST_F(RealPlayer, CostsASecondWhenItHangs) {
  Add("c:\\long.wav", 100);
  Play(kPlayList);
  const PlayerHandle player = WaitForPlaying();
  Freeze(Numbers().at(0));
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(players_->State(player), kStopped);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(kPlayerPatience + 500));
  kill(Numbers().at(0), SIGCONT);
  EXPECT_TRUE(Eventually([&] { return players_->State(player) == kPlaying; }));
}

// As a place in time is gone to: whatever plays is stopped, the selected file started, and then the jump.
class JumpInARealPlayer : public RealPlayer {
 protected:
  JumpInARealPlayer() { Add("c:\\long.wav", 100, true); }

  void ExpectAJumpTo(std::int32_t milliseconds) {
    Background here;
    PlaySelectedFrom(link_, preview_, *players_, milliseconds, here);
    ASSERT_NE(link_.PlayerWindow, "");
    const auto jumped = std::chrono::steady_clock::now();
    std::int32_t position = -1;
    EXPECT_TRUE(
        Eventually([&] { return (position = players_->Position(link_.PlayerWindow)) >= milliseconds - 500; }));
    const auto since =
        std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - jumped);
    EXPECT_NEAR(position, milliseconds + static_cast<double>(since.count()), 500);
    EXPECT_EQ(players_->State(link_.PlayerWindow), kPlaying);
  }
};

TEST_F(JumpInARealPlayer, ThatDoesNotRunYet) {
  ExpectAJumpTo(42000);
}

TEST_F(JumpInARealPlayer, ThatPlaysAlready) {
  for (const char* options : {"--idle=yes", ""}) {
    InstallAs(options);
    Play(kPlayList);
    link_.PlayerWindow = WaitForPlaying();
    ExpectAJumpTo(42000);
    ExpectAJumpTo(7000);
  }
}

TEST_F(JumpInARealPlayer, ThatPauses) {
  Play(kPlayList);
  link_.PlayerWindow = WaitForPlaying();
  const ChildProcess pause({"/usr/bin/dbus-send", "--session", "--print-reply", "--dest=org.mpris.MediaPlayer2.mpv",
                            "/org/mpris/MediaPlayer2", "org.mpris.MediaPlayer2.Player.Pause"});
  EXPECT_TRUE(Eventually([&] { return players_->State(link_.PlayerWindow) == kPaused; }));
  ExpectAJumpTo(42000);
}

TEST_F(JumpInARealPlayer, ThatRunsTwice) {
  Play(kPlayList);
  WaitForPlaying();
  Play(kPlayList);
  Eventually([&] { return Played(1).size() == 1; });
  const PlayerHandle stopped = link_.FindPlayerWindow();
  ExpectAJumpTo(42000);
  EXPECT_EQ(Numbers().size(), 3u);
  EXPECT_NE(link_.PlayerWindow, stopped);
  const std::vector<std::string> played = Native({"c:\\long.wav"});
  EXPECT_TRUE(Eventually([&] { return Played(2) == played; }));
}

}  // namespace
}  // namespace qublet

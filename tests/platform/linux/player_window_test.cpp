#include "platform/player_window.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/private_bus.h"

namespace qublet {
namespace {

using std::chrono::milliseconds;

constexpr auto kPromptly = milliseconds(500);
constexpr auto kAfterOnePatience = milliseconds(kPlayerPatience + 500);

const AssociatedProgram kFake{"c:\\fake.exe", "fake", true};

// A player on the bus that says what the test writes.
class OnTheBus {
 public:
  OnTheBus(const TemporaryDesktop& desktop, const std::string& name, const std::string& told)
      : state_(desktop.Drives().Root() / (name + ".json")), log_(desktop.Drives().Root() / (name + ".log")) {
    Tell(told);
    std::filesystem::remove(log_);
    process_ = std::make_unique<ChildProcess>(
        std::vector<std::string>{"/usr/bin/python3", QUBLET_FAKE_PLAYER, name, state_.string(), log_.string()});
    EXPECT_TRUE(Eventually([&] { return TemporaryDrives::ReadAt(log_).starts_with("ready\n"); })) << name;
  }

  void Tell(const std::string& told) const { TemporaryDrives::WriteAt(state_, "{" + told + "}"); }
  // What it was told to do so far.
  std::string Done() const { return TemporaryDrives::ReadAt(log_).substr(std::string("ready\n").size()); }
  ChildProcess& Process() const { return *process_; }

 private:
  std::filesystem::path state_, log_;
  std::unique_ptr<ChildProcess> process_;
};

class PlayerWindowsTest : public testing::Test {
 protected:
  std::unique_ptr<OnTheBus> Start(const std::string& name, const std::string& told) const {
    return std::make_unique<OnTheBus>(desktop_, name, told);
  }

  template <typename Steps>
  static milliseconds TimeOf(Steps steps) {
    const auto begin = std::chrono::steady_clock::now();
    steps();
    return std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now() - begin);
  }

  TemporaryDesktop desktop_;
  PrivateBus bus_{desktop_};
  std::unique_ptr<PlayerWindows> players_ = OpenPlayerWindows();
};

TEST_F(PlayerWindowsTest, FindNothingInASessionWithoutABus) {
  const Variable none("DBUS_SESSION_BUS_ADDRESS", "");
  EXPECT_EQ(players_->Find(kFake), "");
}

TEST_F(PlayerWindowsTest, FindNothingWhenThePlayerDoesntRunAndNothingIsAssociated) {
  EXPECT_EQ(players_->Find(kFake), "");
  const auto player = Start("fake", R"("status": "Playing")");
  EXPECT_NE(players_->Find(kFake), "");
  EXPECT_EQ(players_->Find({}), "");
}

TEST_F(PlayerWindowsTest, TakeNoPlayerForNone) {
  EXPECT_EQ(players_->State(""), kStopped);
  EXPECT_EQ(players_->Position(""), -1);
  players_->Jump("", 1);
  players_->Stop("");
}

TEST_F(PlayerWindowsTest, FindThePlayerByItsName) {
  const auto player = Start("fake", R"("status": "Stopped")");
  EXPECT_NE(players_->Find(kFake), "");
}

TEST_F(PlayerWindowsTest, FindAnInstanceByItsName) {
  const auto player = Start("fake.instance77", R"("status": "Stopped")");
  EXPECT_NE(players_->Find(kFake), "");
}

TEST_F(PlayerWindowsTest, FindThePlayerByItsDesktopEntry) {
  const auto player = Start("othername", R"("status": "Stopped", "entry": "fake")");
  EXPECT_NE(players_->Find(kFake), "");
}

TEST_F(PlayerWindowsTest, FindThePlayerByTheLastPartOfItsId) {
  const auto other = Start("fakevlc", R"("status": "Playing")");
  const auto player = Start("vlc.instance5", R"("status": "Stopped", "position": 0)");
  const AssociatedProgram program{"c:\\flatpak", "org.videolan.VLC", true, ""};
  EXPECT_EQ(players_->State(players_->Find(program)), kStopped);
  EXPECT_NE(players_->Find(program), "");
  const auto named = Start("org.videolan.VLC", R"("status": "Paused")");
  EXPECT_EQ(players_->State(players_->Find(program)), kPaused) << "the whole id counts more";
}

TEST_F(PlayerWindowsTest, FindThePlayerByTheExecutableThatAnswers) {
  const auto player = Start("othername", R"("status": "Paused")");
  const std::string python = std::filesystem::canonical("/usr/bin/python3").string();
  EXPECT_EQ(players_->State(players_->Find({"c:\\player", "player", true, python})), kPaused);
  EXPECT_EQ(players_->Find({"c:\\player", "player", true, "/usr/bin/other"}), "");
  EXPECT_EQ(players_->Find({"c:\\player", "player", true, ""}), "");
}

TEST_F(PlayerWindowsTest, WaitASecondForAllThatAnActionAsks) {
  const auto player = Start("fake", R"("status": "Playing", "position": 3000000, "track": "/t/1")");
  const PlayerHandle handle = players_->Find(kFake);
  player->Process().Freeze();
  EXPECT_LT(TimeOf([&] {
              const PlayerWindows::Action action(*players_);
              EXPECT_EQ(players_->State(handle), kStopped);
              EXPECT_EQ(players_->Position(handle), kNoAnswer);
              players_->Jump(handle, 1);
              players_->Stop(handle);
            }),
            kAfterOnePatience);
  player->Process().Thaw();
  EXPECT_TRUE(Eventually([&] { return players_->State(handle) == kPlaying; })) << "the next one has its own time";
}

TEST_F(PlayerWindowsTest, NeverTakeAnotherProgramThatPlays) {
  const auto browser = Start("browser.instance12", R"("status": "Playing", "entry": "browser")");
  const auto nameless = Start("fakes", R"("status": "Playing")");
  EXPECT_EQ(players_->Find(kFake), "");
}

TEST_F(PlayerWindowsTest, ChooseTheInstanceThatPlays) {
  const auto first = Start("fake.instance2", R"("status": "Playing", "position": 1000000)");
  const auto second = Start("fake.instance1", R"("status": "Paused", "position": 2000000)");
  EXPECT_EQ(players_->Position(players_->Find(kFake)), 1000);
  first->Tell(R"("status": "Stopped", "position": 0)");
  second->Tell(R"("status": "Playing", "position": 2000000)");
  EXPECT_EQ(players_->Position(players_->Find(kFake)), 2000);
}

TEST_F(PlayerWindowsTest, ChooseTheNewestInstanceWhenNonePlays) {
  const auto first = Start("fake.instance2", R"("status": "Paused", "position": 1000000)");
  const auto second = Start("fake.instance1", R"("status": "Paused", "position": 2000000)");
  EXPECT_EQ(players_->Position(players_->Find(kFake)), 2000);
}

TEST_F(PlayerWindowsTest, KnowAgeByNumberNotByText) {
  std::vector<std::unique_ptr<OnTheBus>> others;
  // The bus counts its callers: the last ones have two digits.
  for (int i = 0; i < 11; ++i) {
    others.push_back(Start("fake.instance" + std::to_string(i),
                           R"("status": "Paused", "position": )" + std::to_string(i * 1000000)));
  }
  EXPECT_EQ(players_->Position(players_->Find(kFake)), 10000);
}

TEST_F(PlayerWindowsTest, TellTheState) {
  const auto player = Start("fake", R"("status": "Playing")");
  const PlayerHandle handle = players_->Find(kFake);
  EXPECT_EQ(players_->State(handle), kPlaying);
  player->Tell(R"("status": "Paused")");
  EXPECT_EQ(players_->State(handle), kPaused);
  player->Tell(R"("status": "Stopped")");
  EXPECT_EQ(players_->State(handle), kStopped);
  player->Tell(R"("status": "Humming")");
  EXPECT_EQ(players_->State(handle), kStopped);
  player->Tell(R"("status": null)");
  EXPECT_EQ(players_->State(handle), kStopped);
}

TEST_F(PlayerWindowsTest, TellThePositionInMilliseconds) {
  const auto player = Start("fake", R"("status": "Playing", "position": 83000999)");
  const PlayerHandle handle = players_->Find(kFake);
  EXPECT_EQ(players_->Position(handle), 83000);
  player->Tell(R"("status": "Paused", "position": 5)");
  EXPECT_EQ(players_->Position(handle), 0);
  player->Tell(R"("status": "Stopped", "position": 83000000)");
  EXPECT_EQ(players_->Position(handle), -1);
}

TEST_F(PlayerWindowsTest, TakeAPositionBeforeTheStartForTheStart) {
  const auto player = Start("fake", R"("status": "Paused", "position": -188379)");
  EXPECT_EQ(players_->Position(players_->Find(kFake)), 0);
}

TEST_F(PlayerWindowsTest, TakePositionsOfAnyWholeNumberTypeAndOfAnySize) {
  const auto player = Start("fake", R"("status": "Playing", "position": 9223372036854775807)");
  const PlayerHandle handle = players_->Find(kFake);
  EXPECT_EQ(players_->Position(handle), std::numeric_limits<std::int32_t>::max());
  player->Tell(R"("status": "Playing", "position": -9223372036854775808)");
  EXPECT_EQ(players_->Position(handle), 0);
  for (const std::string type : {"t", "i", "u"}) {
    player->Tell(R"("status": "Playing", "position": 7000000, "type": ")" + type + "\"");
    EXPECT_EQ(players_->Position(handle), 7000) << type;
  }
  player->Tell(R"("status": "Playing", "position": "7000000", "type": "s")");
  EXPECT_EQ(players_->Position(handle), -1);
  player->Tell(R"("status": "Playing", "position": null)");
  EXPECT_EQ(players_->Position(handle), -1);
}

TEST_F(PlayerWindowsTest, Stop) {
  const auto player = Start("fake", R"("status": "Playing")");
  players_->Stop(players_->Find(kFake));
  EXPECT_EQ(player->Done(), "Stop\n");
}

TEST_F(PlayerWindowsTest, JumpInTheTrackThatPlaysNow) {
  const auto player = Start("fake", R"("status": "Playing", "position": 0, "track": "/t/1")");
  const PlayerHandle handle = players_->Find(kFake);
  players_->Jump(handle, 60000);
  player->Tell(R"("status": "Playing", "position": 0, "track": "/t/2")");
  players_->Jump(handle, 2147483647);
  EXPECT_EQ(player->Done(), "SetPosition /t/1 60000000\nSetPosition /t/2 2147483647000\n");
}

TEST_F(PlayerWindowsTest, JumpByATrackThatIsNamedAsAText) {
  const auto player = Start("fake", R"("status": "Playing", "position": 0, "track": "/t/1", "texts": true)");
  players_->Jump(players_->Find(kFake), 1500);
  EXPECT_EQ(player->Done(), "SetPosition /t/1 1500000\n");
}

TEST_F(PlayerWindowsTest, JumpFromWhereItIsWhenTheTrackHasNoName) {
  const auto player = Start("fake", R"("status": "Playing", "position": 20000000)");
  const PlayerHandle handle = players_->Find(kFake);
  players_->Jump(handle, 5000);
  player->Tell(R"("status": "Playing", "position": 1000000, "track": "no path", "texts": true)");
  players_->Jump(handle, 5000);
  player->Tell(R"("status": "Playing", "position": 0, "metadata": false)");
  players_->Jump(handle, 5000);
  player->Tell(R"("status": "Playing", "position": null, "track": null)");
  players_->Jump(handle, 5000);
  EXPECT_EQ(player->Done(), "Seek -15000000\nSeek 4000000\nSeek 5000000\n");
}

TEST_F(PlayerWindowsTest, DoNotJumpWithoutATrack) {
  const auto player = Start("fake", R"("status": "Stopped", "position": 0,
                                       "track": "/org/mpris/MediaPlayer2/TrackList/NoTrack")");
  players_->Jump(players_->Find(kFake), 5000);
  EXPECT_EQ(player->Done(), "");
}

TEST_F(PlayerWindowsTest, WaitASecondForAPlayerThatHangsAndGoOnWhenItComesBack) {
  const auto player = Start("fake", R"("status": "Playing", "position": 3000000, "track": "/t/1")");
  const PlayerHandle handle = players_->Find(kFake);
  player->Process().Freeze();
  EXPECT_LT(TimeOf([&] { EXPECT_EQ(players_->State(handle), kStopped); }), kAfterOnePatience);
  EXPECT_LT(TimeOf([&] { EXPECT_EQ(players_->Position(handle), kNoAnswer); }), kAfterOnePatience);
  EXPECT_LT(TimeOf([&] { players_->Jump(handle, 1); }), kAfterOnePatience);
  EXPECT_LT(TimeOf([&] { players_->Stop(handle); }), kAfterOnePatience);
  EXPECT_LT(TimeOf([&] { EXPECT_EQ(players_->Find(kFake), handle); }), kPromptly) << "nothing to choose, none asked";
  player->Process().Thaw();
  EXPECT_TRUE(Eventually([&] { return players_->State(handle) == kPlaying; }));
  EXPECT_EQ(players_->Position(handle), 3000);
}

TEST_F(PlayerWindowsTest, CallAPositionThatComesTooLateNoAnswer) {
  const auto player = Start("fake", R"("status": "Playing", "position": 3000000, "delay": 2)");
  const PlayerHandle handle = players_->Find(kFake);
  EXPECT_LT(TimeOf([&] { EXPECT_EQ(players_->Position(handle), kNoAnswer); }), kAfterOnePatience);
}

TEST_F(PlayerWindowsTest, PreferAnInstanceThatAnswersToANewerOneThatHangs) {
  const auto first = Start("fake", R"("status": "Stopped", "position": 0)");
  const PlayerHandle answering = players_->Find(kFake);
  const auto second = Start("fake.instance2", R"("status": "Playing")");
  second->Process().Freeze();
  PlayerHandle found;
  EXPECT_LT(TimeOf([&] { found = players_->Find(kFake); }), kAfterOnePatience);
  EXPECT_EQ(found, answering);
}

TEST_F(PlayerWindowsTest, FindThePlayerBesideAnotherProgramThatHangs) {
  const auto browser = Start("browser", R"("status": "Playing", "entry": "browser")");
  browser->Process().Freeze();
  const auto player = Start("othername", R"("status": "Stopped", "entry": "fake")");
  PlayerHandle found;
  EXPECT_LT(TimeOf([&] { found = players_->Find(kFake); }), kAfterOnePatience);
  EXPECT_NE(found, "");
  const auto named = Start("fake", R"("status": "Playing")");
  EXPECT_LT(TimeOf([&] { found = players_->Find(kFake); }), kPromptly) << "its name is enough";
  EXPECT_EQ(players_->State(found), kPlaying);
}

TEST_F(PlayerWindowsTest, TakeAPlayerThatHasEndedForStopped) {
  auto player = Start("fake", R"("status": "Playing", "position": 3000000, "track": "/t/1")");
  const PlayerHandle handle = players_->Find(kFake);
  player->Process().Kill();
  EXPECT_TRUE(Eventually([&] { return players_->Find(kFake).empty(); }));
  EXPECT_EQ(players_->State(handle), kStopped);
  EXPECT_EQ(players_->Position(handle), -1);
  EXPECT_LT(TimeOf([&] { players_->Jump(handle, 1); }), kPromptly);
  EXPECT_LT(TimeOf([&] { players_->Stop(handle); }), kPromptly);
  player = Start("fake", R"("status": "Playing", "position": 4000000)");
  EXPECT_EQ(players_->Position(handle), -1) << "another player isn't taken for it";
  EXPECT_EQ(players_->Position(players_->Find(kFake)), 4000);
}

TEST_F(PlayerWindowsTest, TalkToTheNextBusWhenOneHasGone) {
  auto player = Start("fake", R"("status": "Playing")");
  const PlayerHandle handle = players_->Find(kFake);
  bus_.Stop();
  EXPECT_EQ(players_->State(handle), kStopped);
  EXPECT_EQ(players_->Find(kFake), "");
  bus_.Start();
  player = Start("fake.instance2", R"("status": "Paused")");
  EXPECT_EQ(players_->State(players_->Find(kFake)), kPaused);
}

TEST_F(PlayerWindowsTest, WaitASecondForABusThatHangs) {
  const auto player = Start("fake", R"("status": "Playing")");
  const PlayerHandle handle = players_->Find(kFake);
  bus_.Daemon().Freeze();
  EXPECT_LT(TimeOf([&] { EXPECT_EQ(players_->State(handle), kStopped); }), kAfterOnePatience);
  EXPECT_LT(TimeOf([&] { EXPECT_EQ(OpenPlayerWindows()->Find(kFake), ""); }), kAfterOnePatience);
  bus_.Daemon().Thaw();
  EXPECT_EQ(players_->State(handle), kPlaying);
}

}  // namespace
}  // namespace qublet

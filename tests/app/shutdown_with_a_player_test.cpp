#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include "app/program.h"
#include "support/login_stand_in.h"
#include "support/modal_work.h"
#include "support/real_player_test_base.h"

namespace qublet {
namespace {

constexpr int kTick = 50;         // milliseconds that a second of the window takes
constexpr int kCountdown = 2000;  // longer than 26 of them

// The window program beside a real player, with a login manager that switches nothing off.
class ShutdownWithAPlayer : public RealPlayerTestBase {
 protected:
  void SetUp() override {
    program_.engine.services.store.SaveSetting("QUBLET2021", "Options", "Show Tips at Startup", "0");
    program_.main.Load("", nullptr);
    program_.main.show();
    QObject::connect(&program_.main, &Main::ended, &program_.main, [this] { ++ended_; });
  }

  // A song of so many seconds, played from the list.
  void Play(double seconds) {
    TemporaryDrives::WriteAt(Root() / "c/song.wav", WavOf(seconds));
    ASSERT_TRUE(program_.engine.items.AddFile("c:\\song.wav", 0, 0));
    program_.engine.document.PlaylistChanged = false;
    program_.commands.Run("MEditPlayList");
  }
  PlayingState State() { return players_->State(program_.engine.player.FindPlayerWindow()); }
  std::int32_t Position() { return players_->Position(program_.engine.player.FindPlayerWindow()); }
  void PlayUntilSilent() {
    Play(0.2);
    ASSERT_TRUE(Eventually([&] { return !Numbers().empty() && !program_.engine.player.FindPlayerWindow().empty(); }));
    // It says that it plays before it has the file.
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    ASSERT_TRUE(Eventually([&] { return State() == kStopped; }));
  }

  void Watch(const std::function<void(QWidget& form)>& look) {
    dialogs_.answers = {MessageAnswer::kOk};
    EXPECT_TRUE(WorkInModal([this] { program_.commands.Run("MToolsWinampShutDown"); },
                            [&](QWidget& form) {
                              form.findChild<QTimer*>(QStringLiteral("tmrSHUTDOWN"))->setInterval(kTick);
                              look(form);
                            }));
    QTest::qWait(kCountdown);
  }
  static std::string Text(const QWidget& form) {
    return form.findChild<QLabel*>(QStringLiteral("Label2"))->text().toStdString();
  }
  static bool Says(const QWidget& form, const char* text) {
    return QTest::qWaitFor([&] { return Text(form).starts_with(text); });
  }
  // Lets the countdown begin, and then has `cancel` end it.
  void Cancel(const std::function<void(QWidget& form)>& cancel) {
    PlayUntilSilent();
    Watch([&](QWidget& form) {
      EXPECT_TRUE(Says(form, "Shutting down in"));
      cancel(form);
      EXPECT_TRUE(QTest::qWaitFor([&] { return !form.isVisible(); }));
    });
    ExpectNothing();
  }
  void ExpectNothing() {
    EXPECT_EQ(login_.Requests(), "");
    EXPECT_EQ(ended_, 0);
  }

  LoginStandIn login_{desktop_};
  std::unique_ptr<Power> power_ = OpenPower();
  WindowFeedback feedback_;
  Program program_{
      {*files_, fakes_.store, fakes_.startup, dialogs_, fakes_.clock, *shell_, fakes_.random, *fakes_.collation,
       *associations_, *players_, *power_, feedback_, *fakes_.sockets, fakes_.machine_values},
      feedback_,
      {"QUBLET2021", "c:\\program", ""}};
  int ended_ = 0;
};

TEST_F(ShutdownWithAPlayer, SwitchesOffWhenItFallsSilent) {
  Play(3);
  ASSERT_TRUE(Eventually([&] { return Position() > 1000; }));
  Watch([this](QWidget& form) {
    EXPECT_TRUE(Says(form, "Playing."));
    EXPECT_EQ(login_.Requests(), "");
    EXPECT_TRUE(Says(form, "Shutting down in"));
    EXPECT_TRUE(Says(form, "Shutting Down Windows..."));
    EXPECT_TRUE(QTest::qWaitFor([this] { return ended_ == 1; }));
  });
  EXPECT_EQ(login_.Requests(), "PowerOff True\n");
  EXPECT_EQ(ended_, 1);
  EXPECT_EQ(TemporaryDrives::ReadAt(Root() / "c/program/last.m3u"), "c:\\song.wav\r\n");
}

TEST_F(ShutdownWithAPlayer, IsCancelledByItsButton) {
  Cancel([](QWidget& form) {
    QTest::mouseClick(form.findChild<QPushButton*>(QStringLiteral("cmdCLOSE")), Qt::LeftButton);
  });
}

TEST_F(ShutdownWithAPlayer, IsCancelledByEscape) {
  Cancel([](QWidget& form) { QTest::keyClick(form.windowHandle(), Qt::Key_Escape); });
}

TEST_F(ShutdownWithAPlayer, IsCancelledByTheWindowManager) {
  Cancel([](QWidget& form) { form.close(); });
}

TEST_F(ShutdownWithAPlayer, IsCancelledByThePlayersEnd) {
  Cancel([this](QWidget&) { kill(Numbers().at(0), SIGTERM); });
  EXPECT_EQ(dialogs_.messages.back().text,
            "WinAMP was detected to be no longer running on the system, the process will halt.");
}

TEST_F(ShutdownWithAPlayer, IsHeldByItsPause) {
  PlayUntilSilent();
  Watch([](QWidget& form) {
    EXPECT_TRUE(Says(form, "Shutting down in"));
    QTest::mouseClick(form.findChild<QPushButton*>(QStringLiteral("cmdHALT")), Qt::LeftButton);
    QTest::qWait(kCountdown);
    EXPECT_EQ(Text(form), "Halted...");
  });
  ExpectNothing();
}

TEST_F(ShutdownWithAPlayer, IsHeldByAPausedPlayer) {
  Play(100);
  ASSERT_TRUE(Eventually([&] { return Position() > 1000; }));
  const ChildProcess pause({"/usr/bin/dbus-send", "--session", "--print-reply", "--dest=org.mpris.MediaPlayer2.mpv",
                            "/org/mpris/MediaPlayer2", "org.mpris.MediaPlayer2.Player.Pause"});
  ASSERT_TRUE(Eventually([&] { return State() == kPaused; }));
  Watch([](QWidget& form) {
    QTest::qWait(kCountdown);
    EXPECT_TRUE(Text(form).starts_with("Playing.")) << Text(form);
  });
  ExpectNothing();
}

TEST_F(ShutdownWithAPlayer, BeginsAnewWithASongThatIsPlayedMeanwhile) {
  PlayUntilSilent();
  Watch([this](QWidget& form) {
    EXPECT_TRUE(Says(form, "Shutting down in"));
    form.findChild<QTimer*>(QStringLiteral("tmrSHUTDOWN"))->setInterval(10 * kTick);
    TemporaryDrives::WriteAt(Root() / "c/song.wav", WavOf(100));
    program_.engine.preview.Play(kPlayList);
    EXPECT_TRUE(Says(form, "Playing."));
  });
  ExpectNothing();
}

TEST_F(ShutdownWithAPlayer, WaitsForAPlayerThatHangs) {
  PlayUntilSilent();
  Watch([this](QWidget& form) {
    EXPECT_TRUE(Says(form, "Shutting down in"));
    Freeze(Numbers().at(0));
    QTest::qWait(100);
    const std::string text = Text(form);
    QTest::qWait(kCountdown);
    EXPECT_EQ(Text(form), text);
    EXPECT_EQ(dialogs_.messages.size(), 1u) << "the one that asks";
    kill(Numbers().at(0), SIGCONT);
    EXPECT_TRUE(QTest::qWaitFor([this] { return ended_ == 1; }));
  });
  EXPECT_EQ(login_.Requests(), "PowerOff True\n");
}

}  // namespace
}  // namespace qublet

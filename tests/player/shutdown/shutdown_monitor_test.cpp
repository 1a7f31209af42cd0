#include "player/shutdown/shutdown_monitor.h"

#include <gtest/gtest.h>

#include "support/shutdown_test_base.h"

namespace qublet {
namespace {

// Work that is done when the test says so, as a thread of its own might.
class LateBackground : public Background {
 public:
  bool Start(const Work& work, const Work& done) override {
    if (done_) return false;
    work();
    done_ = done;
    return true;
  }
  void Answer() { std::exchange(done_, nullptr)(); }

 private:
  Work done_;
};

class BeginShutdownTest : public ShutdownTestBase {
 protected:
  Background background_;
};

TEST_F(BeginShutdownTest, SaysThatNoPlayerRuns) {
  players_.running = "";
  EXPECT_FALSE(BeginShutdown(engine_, background_));
  Messages told = Told("Could not find WinAmp running on the system.");
  told.push_back({"If you are running WinAMP3, you may need the WinAMP2 plugin manager installed.",
                  MessageIcon::kInformation, MessageButtons::kOk});
  EXPECT_EQ(dialogs_.messages, told);
}

TEST_F(BeginShutdownTest, AsksFirst) {
  for (const MessageAnswer refused : {MessageAnswer::kCancel, MessageAnswer::kNo}) {
    dialogs_.answers = {refused};
    EXPECT_FALSE(BeginShutdown(engine_, background_));
  }
  dialogs_.messages.clear();
  dialogs_.answers = {MessageAnswer::kOk};
  EXPECT_TRUE(BeginShutdown(engine_, background_));
  EXPECT_EQ(dialogs_.messages, (Messages{{"Windows will be shut down when WinAmp stops playing for 25 seconds.",
                                          MessageIcon::kQuestion, MessageButtons::kOkCancel}}));
}

TEST_F(BeginShutdownTest, OffersToSaveAChangedList) {
  drives_.Write("a.mp3", "abc");
  AddRows({"a.mp3"});
  engine_.document.PlaylistChanged = true;
  dialogs_.answers = {MessageAnswer::kOk, MessageAnswer::kCancel};
  EXPECT_FALSE(BeginShutdown(engine_, background_));
  dialogs_.answers = {MessageAnswer::kOk, MessageAnswer::kNo};
  EXPECT_TRUE(BeginShutdown(engine_, background_));
  EXPECT_EQ(dialogs_.messages.size(), 4u);
}

class ShutdownMonitorTest : public ShutdownTestBase {
 protected:
  void Expect() override { label_at_the_end_ = monitor_->view.Label2; }

  void Open() {
    monitor_ = std::make_unique<ShutdownMonitor>(
        engine_, background_, count_, ShutdownMonitor::Window{[this] { ++renders_; }, [this] { ++closed_; }});
    monitor_->Form_Load();
  }
  // A second in which the player is at that place.
  void Tick(std::int32_t position) {
    players_.position = position;
    monitor_->tmrSHUTDOWN_Timer();
  }
  void TickSilently(int times) {
    for (int i = 0; i < times; ++i) Tick(-1);
  }
  ShutdownView& View() { return monitor_->view; }

  Background background_;
  std::unique_ptr<ShutdownMonitor> monitor_;
  int renders_ = 0;
  int closed_ = 0;
  std::string label_at_the_end_;
};

TEST_F(ShutdownMonitorTest, OpensWithItsTextsAndTheTimer) {
  Open();
  EXPECT_EQ(View().Label2, "Monitoring...");
  EXPECT_EQ(View().cmdHALT, "&Pause>");
  EXPECT_EQ(View().ProgressBar1, 0);
  EXPECT_TRUE(View().tmrSHUTDOWN);
  EXPECT_EQ(renders_, 1);
}

TEST_F(ShutdownMonitorTest, JustStaysWhereThePlayerIsGoneOnOpening) {
  players_.running = "";
  Open();
  EXPECT_EQ(View().Label2, "Monitoring...");
  EXPECT_FALSE(View().tmrSHUTDOWN);
  EXPECT_TRUE(dialogs_.messages.empty());
  EXPECT_EQ(closed_, 0);
}

TEST_F(ShutdownMonitorTest, ShowsTheSilenceBeforeThisSecondOnTheBar) {
  Open();
  for (std::int16_t silent = 0; silent < 4; ++silent) {
    TickSilently(1);
    EXPECT_EQ(View().ProgressBar1, silent);
  }
  Tick(5000);
  EXPECT_EQ(View().ProgressBar1, 4);
  Tick(6000);
  EXPECT_EQ(View().ProgressBar1, 0);
}

TEST_F(ShutdownMonitorTest, KeepsAPausedPlayerForOneThatPlays) {
  Open();
  for (const char* text : {"Playing.", "Playing..", "Playing..."}) {
    Tick(83000);
    EXPECT_EQ(View().Label2, text);
  }
}

TEST_F(ShutdownMonitorTest, SwitchesOffAfterTwentySixSilentSeconds) {
  Open();
  TickSilently(25);
  EXPECT_EQ(View().Label2, "Shutting down in 1 Seconds...");
  EXPECT_EQ(power_.requests, 0);
  TickSilently(1);
  EXPECT_EQ(View().ProgressBar1, 25);
  EXPECT_EQ(label_at_the_end_, "Shutting Down Windows...");
  EXPECT_FALSE(View().tmrSHUTDOWN);
  EXPECT_EQ(power_.requests, 1);
  EXPECT_EQ(order_, "power off|");
  EXPECT_TRUE(stored_before_);
  EXPECT_EQ(state_.ended_unsaved, 1);
  EXPECT_EQ(closed_, 0);
}

TEST_F(ShutdownMonitorTest, StoresWindowAndListBeforehand) {
  drives_.Write("a.mp3", "abc");
  AddRows({"a.mp3"});
  Open();
  state_.copy = [](AppSettings& settings) { settings.W = 4321; };
  TickSilently(26);
  EXPECT_EQ(fakes_.store.GetSetting("QUBLET2021", "PS", "W"), "4321");
  EXPECT_EQ(drives_.Read("program/last.m3u"), "c:\\a.mp3\r\n");
}

TEST_F(ShutdownMonitorTest, BeginsAnewWhenItPlaysInBetween) {
  Open();
  TickSilently(25);
  Tick(1000);
  TickSilently(25);
  EXPECT_EQ(power_.requests, 0);
  TickSilently(1);
  EXPECT_EQ(power_.requests, 1);
}

TEST_F(ShutdownMonitorTest, ClosesWhenThePlayerHasGone) {
  Open();
  TickSilently(20);
  players_.running = "";
  TickSilently(1);
  EXPECT_EQ(dialogs_.messages, PlayerGone());
  EXPECT_FALSE(View().tmrSHUTDOWN);
  EXPECT_EQ(View().ProgressBar1, 20);
  EXPECT_EQ(closed_, 1);
  EXPECT_EQ(power_.requests, 0);
}

TEST_F(ShutdownMonitorTest, IsLedOnByAnotherPlayer) {
  Open();
  players_.running = ":1.8";
  Tick(2000);
  EXPECT_EQ(View().Label2, "Playing.");
  EXPECT_EQ(engine_.player.PlayerWindow, ":1.8");
}

TEST_F(ShutdownMonitorTest, ChangesNothingWithoutAnAnswer) {
  Open();
  Tick(1000);
  TickSilently(24);
  for (int i = 0; i < 3; ++i) {
    Tick(kNoAnswer);
    EXPECT_EQ(View().Label2, "Shutting down in 2 Seconds...");
    EXPECT_EQ(count_.SilentSeconds, 24);
    EXPECT_EQ(count_.PlayingPhase, 1);
  }
  TickSilently(1);
  EXPECT_EQ(View().Label2, "Shutting down in 1 Seconds...");
}

TEST_F(ShutdownMonitorTest, KeepsAPlayerThatHangsSoThatItIsNotFound) {
  Open();
  TickSilently(10);
  players_.running = "";
  players_.silent = ":1.7";
  TickSilently(30);
  EXPECT_EQ(count_.SilentSeconds, 10);
  EXPECT_TRUE(dialogs_.messages.empty());
  EXPECT_TRUE(View().tmrSHUTDOWN);
  players_.silent = "";
  TickSilently(1);
  EXPECT_EQ(dialogs_.messages, PlayerGone());
}

TEST_F(ShutdownMonitorTest, PausesAndGoesOnWithTheSameSilence) {
  Open();
  TickSilently(10);
  monitor_->cmdHALT_Click();
  EXPECT_FALSE(View().tmrSHUTDOWN);
  EXPECT_EQ(View().cmdHALT, "&Resume>");
  EXPECT_EQ(View().Label2, "Halted...");
  monitor_->cmdHALT_Click();
  EXPECT_TRUE(View().tmrSHUTDOWN);
  EXPECT_EQ(View().cmdHALT, "&Pause>");
  EXPECT_EQ(View().Label2, "Monitoring...");
  TickSilently(1);
  EXPECT_EQ(View().Label2, "Shutting down in 15 Seconds...");
}

TEST_F(ShutdownMonitorTest, StartsByThatButtonWhereThePlayerCameLater) {
  players_.running = "";
  Open();
  players_.running = ":1.7";
  monitor_->cmdHALT_Click();
  EXPECT_TRUE(View().tmrSHUTDOWN);
  EXPECT_EQ(View().cmdHALT, "&Pause>");
}

TEST_F(ShutdownMonitorTest, GoesOnCountingInTheNextWindow) {
  Open();
  Tick(1000);
  TickSilently(20);
  Open();
  EXPECT_EQ(View().ProgressBar1, 0);
  EXPECT_EQ(View().Label2, "Monitoring...");
  TickSilently(1);
  EXPECT_EQ(View().ProgressBar1, 20);
  EXPECT_EQ(View().Label2, "Shutting down in 5 Seconds...");
  Tick(1000);
  EXPECT_EQ(View().Label2, "Playing..");
}

class LateAnswers : public ShutdownMonitorTest {
 protected:
  void Open() {
    monitor_ = std::make_unique<ShutdownMonitor>(
        engine_, late_, count_, ShutdownMonitor::Window{[this] { ++renders_; }, [this] { ++closed_; }});
    monitor_->Form_Load();
  }

  LateBackground late_;
};

TEST_F(LateAnswers, CountWhenTheyCome) {
  Open();
  Tick(1000);
  EXPECT_EQ(View().Label2, "Monitoring...");
  late_.Answer();
  EXPECT_EQ(View().Label2, "Playing.");
}

TEST_F(LateAnswers, LeaveTheSecondsInBetweenWithoutOne) {
  Open();
  for (int i = 0; i < 40; ++i) Tick(-1);
  late_.Answer();
  EXPECT_EQ(count_.SilentSeconds, 1);
}

TEST_F(LateAnswers, CountForNothingAfterAPause) {
  Open();
  count_.SilentSeconds = 25;
  Tick(-1);
  monitor_->cmdHALT_Click();
  late_.Answer();
  EXPECT_EQ(View().Label2, "Halted...");
  EXPECT_EQ(power_.requests, 0);
  Tick(-1);
  monitor_->cmdHALT_Click();
  late_.Answer();
  EXPECT_EQ(power_.requests, 0) << "of the watch before";
}

TEST_F(LateAnswers, CountForNothingAfterTheWindow) {
  Open();
  count_.SilentSeconds = 25;
  Tick(-1);
  monitor_.reset();
  late_.Answer();
  EXPECT_EQ(power_.requests, 0);
  EXPECT_EQ(count_.SilentSeconds, 25);
}

}  // namespace
}  // namespace qublet

#include "player/shutdown/ui/frmEXWIN.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <chrono>
#include <thread>

#include "platform/qt/worker.h"
#include "support/shutdown_test_base.h"

namespace qublet {
namespace {

constexpr int kFastTick = 40;  // milliseconds; a pressed key takes 100 of them

// A player that takes its time to answer.
class SlowPlayer : public FakePlayerWindows {
 public:
  std::int32_t Position(const PlayerHandle& player) override {
    std::this_thread::sleep_for(delay);
    asked_on = std::this_thread::get_id();
    return FakePlayerWindows::Position(player);
  }

  std::chrono::milliseconds delay{0};
  std::thread::id asked_on;
};

class ExwinTest : public ShutdownTestBase {
 protected:
  // Opened in front; a second takes `tick` milliseconds.
  void Open(Engine& engine, int tick = kFastTick) {
    form_ = std::make_unique<frmEXWIN>(engine, worker_, count_, nullptr);
    Find<QTimer>("tmrSHUTDOWN").setInterval(tick);
    form_->show();
    form_->raise();
    form_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form_.get()));
  }
  void Open(int tick = kFastTick) { Open(engine_, tick); }
  template <typename Control>
  Control& Find(const char* name) {
    auto* control = form_->findChild<Control*>(QString::fromUtf8(name));
    if (control == nullptr) throw std::runtime_error(std::string("no control ") + name);
    return *control;
  }
  std::string Text(const char* label) { return Find<QLabel>(label).text().toStdString(); }
  bool Counts() {
    return QTest::qWaitFor([this] { return Text("Label2").starts_with("Shutting down in 2"); });
  }
  // Far longer than the rest of the countdown.
  void ExpectNothingMore() {
    const std::int16_t silent = count_.SilentSeconds;
    QTest::qWait(28 * kFastTick);
    EXPECT_EQ(count_.SilentSeconds, silent);
    EXPECT_EQ(power_.requests, 0);
    EXPECT_EQ(state_.ended_unsaved, 0);
  }

  Worker worker_;
  std::unique_ptr<frmEXWIN> form_;
};

TEST_F(ExwinTest, HasItsControls) {
  form_ = std::make_unique<frmEXWIN>(engine_, worker_, count_, nullptr);
  EXPECT_EQ(Text("Label1"), "Monitoring current WinAMP status...");
  EXPECT_EQ(Text("Label2"), "Monitoring...");
  EXPECT_EQ(Text("Label3"), "Auto-Shutdown...");
  EXPECT_EQ(form_->windowTitle().toStdString(), "Auto-Shutdown...");
  EXPECT_TRUE(form_->windowFlags().testFlag(Qt::FramelessWindowHint));
  EXPECT_NE(qobject_cast<TitleBar*>(&Find<QLabel>("Label3")), nullptr);
  EXPECT_EQ(Find<QProgressBar>("ProgressBar1").minimum(), 0);
  EXPECT_EQ(Find<QProgressBar>("ProgressBar1").maximum(), 25);
  EXPECT_EQ(Find<QProgressBar>("ProgressBar1").value(), 0);
  EXPECT_EQ(Find<QPushButton>("cmdHALT").text().toStdString(), "&Pause>");
  EXPECT_EQ(Find<QPushButton>("cmdHALT").toolTip().toStdString(), "Pause/Resume Monitoring.");
  EXPECT_EQ(Find<QPushButton>("cmdCLOSE").text().toStdString(), "&X");
  EXPECT_EQ(Find<QPushButton>("cmdCLOSE").toolTip().toStdString(), "Abort process.");
  EXPECT_EQ(Find<QTimer>("tmrSHUTDOWN").interval(), 1000);
  EXPECT_TRUE(Find<QTimer>("tmrSHUTDOWN").isActive());
}

TEST_F(ExwinTest, StaysAsItIsWithoutAPlayer) {
  players_.running = "";
  Open();
  EXPECT_FALSE(Find<QTimer>("tmrSHUTDOWN").isActive());
  QTest::qWait(5 * kFastTick);
  EXPECT_EQ(Text("Label2"), "Monitoring...");
  EXPECT_TRUE(form_->isVisible());
}

TEST_F(ExwinTest, FollowsThePlayerBesideTheWindows) {
  SlowPlayer slow;
  slow.running = ":1.7";
  slow.position = 5000;
  slow.delay = std::chrono::milliseconds(300);
  Services services = engine_.services;
  Engine engine({services.files, services.store, services.startup, services.dialogs, services.clock, services.shell,
                 services.random, services.collation, services.associations, slow, services.power, services.feedback,
                 services.sockets, services.machine_values},
                {"QUBLET2021", "c:\\program", ""}, ",");
  Open(engine);
  QTest::qWait(3 * kFastTick);
  const auto begin = std::chrono::steady_clock::now();
  QTest::mouseClick(&Find<QPushButton>("cmdHALT"), Qt::LeftButton);
  EXPECT_EQ(Text("Label2"), "Halted...") << "nobody waits for the player";
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(150));
  QTest::mouseClick(&Find<QPushButton>("cmdHALT"), Qt::LeftButton);
  EXPECT_TRUE(QTest::qWaitFor([this] { return Text("Label2") == "Playing."; }));
  EXPECT_TRUE(QTest::qWaitFor([this] { return Text("Label2") == "Playing.."; }));
  EXPECT_NE(slow.asked_on, std::this_thread::get_id());
  form_.reset();
  worker_.Do([] {});  // what is under way asks this player
}

TEST_F(ExwinTest, CountsDownAndSwitchesOff) {
  Open();
  EXPECT_TRUE(Counts());
  EXPECT_GE(Find<QProgressBar>("ProgressBar1").value(), 2);
  EXPECT_TRUE(QTest::qWaitFor([this] { return power_.requests == 1; }));
  EXPECT_EQ(Text("Label2"), "Shutting Down Windows...");
  EXPECT_EQ(Find<QProgressBar>("ProgressBar1").value(), 25);
  EXPECT_TRUE(QTest::qWaitFor([this] { return state_.ended_unsaved == 1; }));
  EXPECT_TRUE(stored_before_);
  QTest::qWait(5 * kFastTick);
  EXPECT_EQ(power_.requests, 1);
}

TEST_F(ExwinTest, IsAbandonedByItsButtonEscapeOrTheWindowManager) {
  const std::vector<std::function<void()>> ways{
      [this] { QTest::mouseClick(&Find<QPushButton>("cmdCLOSE"), Qt::LeftButton); },
      [this] { QTest::keyClick(form_->windowHandle(), Qt::Key_X, Qt::AltModifier); },
      [this] { QTest::keyClick(form_->windowHandle(), Qt::Key_Escape); }, [this] { form_->close(); }};
  for (const std::function<void()>& close : ways) {
    count_ = {};
    Open();
    EXPECT_TRUE(Counts());
    close();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !form_->isVisible(); }));
    form_.reset();
    QTest::qWait(5 * kFastTick);
    ExpectNothingMore();
  }
}

TEST_F(ExwinTest, PausesByKeyAndButton) {
  Open();
  EXPECT_TRUE(Counts());
  const int room = Find<QPushButton>("cmdHALT").width();
  QTest::keyClick(form_->windowHandle(), Qt::Key_P, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return Text("Label2") == "Halted..."; }));
  EXPECT_EQ(Find<QPushButton>("cmdHALT").text().toStdString(), "&Resume>");
  QTest::qWait(kFastTick);
  EXPECT_EQ(Find<QPushButton>("cmdHALT").width(), room) << "nothing moves under the hand";
  ExpectNothingMore();
  QTest::keyClick(form_->windowHandle(), Qt::Key_R, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return Text("Label2") == "Monitoring..."; }));
  EXPECT_TRUE(QTest::qWaitFor([this] { return power_.requests == 1; }));
}

TEST_F(ExwinTest, ClosesWhenThePlayerHasGone) {
  Open(100);
  EXPECT_TRUE(QTest::qWaitFor([this] { return count_.SilentSeconds == 1; }));
  players_.running = "";
  EXPECT_TRUE(QTest::qWaitFor([this] { return !form_->isVisible(); }));
  EXPECT_EQ(dialogs_.messages, PlayerGone());
  ExpectNothingMore();
}

}  // namespace
}  // namespace qublet

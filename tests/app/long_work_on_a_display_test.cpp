#include <gtest/gtest.h>

#include <QDialog>
#include <QProcess>

#include "support/main_window.h"
#include "support/slow_file_system.h"

namespace qublet {
namespace {

constexpr int kPatience = 20'000;  // milliseconds

// The main window under a window manager, two rows in its list and a folder at hand that takes seconds to be read.
class LongWorkOnADisplay : public testing::Test {
 protected:
  LongWorkOnADisplay() {
    for (const char* name : {"a", "b"}) window.drives.Write(std::string("m/") + name + ".mp3", kNoise);
    for (int i = 0; i < 400; ++i) window.drives.Write("big/" + std::to_string(1000 + i) + ".mp3", kNoise);
    window.Start();
    window.Add("c:\\m");
    window.document->PlaylistChanged = false;
  }
  ~LongWorkOnADisplay() override {
    tool.kill();
    tool.waitForFinished();
  }

  void SetUp() override {
    ASSERT_EQ(QGuiApplication::platformName(), QStringLiteral("xcb")) << "these tests need a display";
    window.main->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.main));
    window.List().setFocus();
  }

  // Steps of xdotool that are done while something else goes on.
  void Meanwhile(const QStringList& steps) {
    tool.start("xdotool", steps);
    ASSERT_TRUE(tool.waitForStarted());
  }
  // The last of them may still be on its way out.
  void ExpectAllDone() { EXPECT_TRUE(tool.waitForFinished(1000) || tool.state() == QProcess::NotRunning); }
  void Press(const QStringList& keys) {
    Meanwhile(QStringList{"key", "--delay", "100"} + keys);
    EXPECT_TRUE(QTest::qWaitFor([&] { return tool.state() == QProcess::NotRunning; }, kPatience));
    QTest::qWait(200);
  }

  MainWindow window{[] { return std::make_unique<SlowFileSystem>(std::chrono::milliseconds(20)); }};
  QProcess tool;
};

TEST_F(LongWorkOnADisplay, EndsABatchByEscape) {
  Meanwhile({"sleep", "1", "key", "Escape"});
  window.Add("c:\\big");
  ExpectAllDone();
  EXPECT_EQ(window.Names(), "a.mp3 b.mp3");
  EXPECT_EQ(window.Selected(), "xx");
  EXPECT_EQ(window.Panel(1), "2 Items");
  EXPECT_FALSE(window.document->PlaylistChanged);
  window.Add("c:\\m");
  EXPECT_EQ(window.Rows().Count(), 4) << "the next command runs as ever";
}

TEST_F(LongWorkOnADisplay, GoesOnWhateverElseIsPressed) {
  Meanwhile({"sleep", "1", "key", "Return", "key", "Delete", "key", "ctrl+q", "key", "alt+F4", "key", "space"});
  window.Add("c:\\big");
  ExpectAllDone();
  EXPECT_EQ(window.Rows().Count(), 402);
  EXPECT_TRUE(window.main->isVisible());
}

TEST_F(LongWorkOnADisplay, HasAProgressWindowWithoutButtons) {
  QProcess look;
  look.start("sh", {"-c", "sleep 1; xprop -name 'Get File Info...' _NET_FRAME_EXTENTS"});
  ASSERT_TRUE(look.waitForStarted());
  window.Add("c:\\big");
  ASSERT_TRUE(look.waitForFinished(kPatience));
  const std::string frame = look.readAllStandardOutput().trimmed().toStdString();
  const std::size_t top = frame.rfind(", ", frame.rfind(", ") - 1) + 2;
  ASSERT_TRUE(frame.starts_with("_NET_FRAME_EXTENTS(CARDINAL) = ")) << frame;
  EXPECT_LE(std::stoi(frame.substr(top)), 5) << "a title bar: " << frame;
}

TEST_F(LongWorkOnADisplay, ShowsWhatEntriesDoInTheLastPanelUntilTheMenuCloses) {
  const std::string totals = window.Panel(1) + window.Panel(2) + window.Panel(3);
  window.feedback.ShowActivity("news");
  Press({"alt+v", "Down"});
  EXPECT_EQ(window.Panel(4), "Show or hide the status bar");
  EXPECT_EQ(window.Panel(1) + window.Panel(2) + window.Panel(3), totals);
  EXPECT_TRUE(window.main->findChild<QLabel*>("Panel1")->isVisible());
  Press({"Escape", "Escape"});
  EXPECT_EQ(window.Panel(4), "news");
}

}  // namespace
}  // namespace qublet

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTimer>

#include "support/main_window.h"
#include "support/modal_work.h"

namespace qublet {
namespace {

// The entry that switches the computer off at the end of the music.
class ShutdownTest : public testing::Test {
 protected:
  ShutdownTest() {
    window.associations.program = {"c:\\mpv.exe", "mpv", true};
    window.players.running = ":1.7";
    window.drives.Write("a.mp3", kNoise);
    window.Start();
    QObject::connect(window.main, &Main::ended, window.main, [this] { ++ended; });
  }

  void Open(const std::function<void(QWidget& form)>& look) {
    window.dialogs.answers.push_front(MessageAnswer::kOk);
    EXPECT_TRUE(WorkInModal([this] { window.Run("MToolsWinampShutDown"); }, look));
  }
  void ExpectNoWindow() {
    QTimer watch;
    bool opened = false;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
      if (QWidget* form = QApplication::activeModalWidget(); form != nullptr) {
        opened = true;
        form->close();
      }
    });
    watch.start(0);
    window.Run("MToolsWinampShutDown");
    EXPECT_FALSE(opened);
  }
  static QLabel& Label(const QWidget& form) { return *form.findChild<QLabel*>(QStringLiteral("Label2")); }
  // A second of the window takes so long, in milliseconds.
  static void Hurry(const QWidget& form) { form.findChild<QTimer*>(QStringLiteral("tmrSHUTDOWN"))->setInterval(20); }

  MainWindow window;
  int ended = 0;
};

TEST_F(ShutdownTest, CanBeChosenWhereAPlayerOpensPlaylists) {
  EXPECT_TRUE(window.Action("MToolsWinampShutDown")->isVisible());
  EXPECT_TRUE(window.Action("MToolsWinampShutDown")->isEnabled());
  EXPECT_EQ(window.Action("MToolsWinampShutDown")->statusTip().toStdString(),
            "Switch the computer off at the end of the music");
  window.associations.program = {};
  window.Restart();
  EXPECT_FALSE(window.Action("MToolsWinampShutDown")->isVisible());
}

TEST_F(ShutdownTest, OpensNothingWithoutAPlayerThatRuns) {
  window.players.running = "";
  ExpectNoWindow();
  EXPECT_EQ(window.dialogs.messages.size(), 2u);
}

TEST_F(ShutdownTest, OpensNothingWhenTheUserDoesntAgree) {
  window.dialogs.answers = {MessageAnswer::kCancel};
  ExpectNoWindow();
  EXPECT_EQ(window.dialogs.messages.size(), 1u);
}

TEST_F(ShutdownTest, OpensNothingWhenTheListIsToBeKept) {
  window.Add("c:\\a.mp3");
  window.dialogs.answers = {MessageAnswer::kOk, MessageAnswer::kCancel};
  ExpectNoWindow();
  EXPECT_EQ(window.dialogs.messages.size(), 2u);
}

TEST_F(ShutdownTest, WatchesBesideTheMainWindow) {
  Open([](QWidget& form) {
    EXPECT_EQ(form.objectName().toStdString(), "frmEXWIN");
    EXPECT_TRUE(form.isModal());
  });
  EXPECT_EQ(ended, 0);
}

TEST_F(ShutdownTest, EndsTheProgramAfterTheSilence) {
  window.Add("c:\\a.mp3");
  window.dialogs.answers = {MessageAnswer::kNo};
  Open([this](QWidget& form) {
    Hurry(form);
    EXPECT_TRUE(QTest::qWaitFor([this] { return ended == 1; }));
    EXPECT_EQ(window.fakes.power.requests, 1);
  });
  EXPECT_EQ(window.drives.Read("program/last.m3u"), "c:\\a.mp3\r\n");
  EXPECT_FALSE(std::filesystem::exists(window.drives.C() / "own/recovery-1.m3u")) << "its loss was agreed to";
}

TEST_F(ShutdownTest, KeepsTheSilenceFromWindowToWindow) {
  Open([](QWidget& form) {
    Hurry(form);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Label(form).text().startsWith(u"Shutting down in 1"); }));
  });
  window.players.position = -1;
  Open([](QWidget& form) {
    form.findChild<QTimer*>(QStringLiteral("tmrSHUTDOWN"))->setInterval(100);
    EXPECT_EQ(Label(form).text().toStdString(), "Monitoring...");
    EXPECT_TRUE(QTest::qWaitFor([&] { return Label(form).text() != u"Monitoring..."; }));
    EXPECT_TRUE(Label(form).text().startsWith(u"Shutting down in 1")) << Label(form).text().toStdString();
  });
  EXPECT_EQ(ended, 0);
}

}  // namespace
}  // namespace qublet

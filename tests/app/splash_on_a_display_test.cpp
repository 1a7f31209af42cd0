#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <set>

#include "app/SplashFrm.h"

namespace qublet {
namespace {

std::set<QRgb> ColoursOfTheMiddle() {
  const QScreen& screen = *QGuiApplication::primaryScreen();
  const QRect middle(screen.geometry().center() - QPoint(150, 40), QSize(300, 80));
  const QImage picture = QGuiApplication::primaryScreen()->grabWindow(0).copy(middle).toImage();
  std::set<QRgb> colours;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x) colours.insert(picture.pixel(x, y));
  return colours;
}

// The window of the test before goes when the server has time for it.
bool NothingStandsThere() {
  return QTest::qWaitFor([] { return ColoursOfTheMiddle().size() <= 2; }, 10'000);
}

bool MainWindowIsThere() {
  QProcess windows;
  windows.start("wmctrl", {"-l"});
  windows.waitForFinished();
  return windows.readAllStandardOutput().contains("Playlist Editor v");
}

// What comes next in a start makes the main window and runs no events.
TEST(SplashOnADisplay, CanBeReadBeforeAnythingElseIsMade) {
  ASSERT_EQ(QGuiApplication::platformName(), QStringLiteral("xcb")) << "these tests need a display";
  ASSERT_TRUE(NothingStandsThere());
  SplashFrm splash([](QWidget&) {});
  splash.Begin();
  EXPECT_GT(ColoursOfTheMiddle().size(), 20U);
}

TEST(SplashOnADisplay, CanBeReadWhileAnotherProcessHoldsTheSettings) {
  ASSERT_EQ(QGuiApplication::platformName(), QStringLiteral("xcb")) << "these tests need a display";
  const QTemporaryDir home;
  QDir(home.path()).mkpath(QStringLiteral("config/velmora"));
  QFile lock(home.filePath(QStringLiteral("config/velmora/QUBLET2021.conf.lock")));
  ASSERT_TRUE(lock.open(QIODevice::ReadWrite));
  ASSERT_EQ(flock(lock.handle(), LOCK_EX), 0);
  ASSERT_TRUE(NothingStandsThere());

  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("HOME", home.path());
  environment.insert("XDG_CONFIG_HOME", home.filePath("config"));
  environment.insert("XDG_DATA_HOME", home.filePath("data"));
  environment.insert("QUBLET_SITE", "http://127.0.0.1");
  QProcess program;
  program.setProcessEnvironment(environment);
  program.start(QUBLET_PROGRAM);
  const bool painted = QTest::qWaitFor([] { return ColoursOfTheMiddle().size() > 20; }, 2500);
  const bool alone = !MainWindowIsThere();
  EXPECT_TRUE(painted);
  EXPECT_TRUE(alone) << "the program waits for the settings";
  flock(lock.handle(), LOCK_UN);
  EXPECT_TRUE(QTest::qWaitFor(MainWindowIsThere, 10'000));
  program.terminate();
  if (!program.waitForFinished(5000)) program.kill();
  program.waitForFinished();
}

}  // namespace
}  // namespace qublet

#include "app/SplashFrm.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QTimer>

namespace qublet {
namespace {

TEST(SplashTest, HandsOverOnceAndNotWhileItIsBeingShown) {
  int shown = 0;
  SplashFrm splash([&](QWidget&) { ++shown; });
  QTimer::singleShot(0, [] { QTest::qSleep(300); });  // as on a slow machine
  QTimer::singleShot(0, [] { QCoreApplication::processEvents(); });
  splash.Begin();
  EXPECT_EQ(shown, 0) << "the main window isn't made yet";
  EXPECT_TRUE(splash.isVisible());
  EXPECT_TRUE(QTest::qWaitFor([&] { return shown > 0; }));
  QTest::qWait(300);
  EXPECT_EQ(shown, 1);
  EXPECT_FALSE(splash.isVisible());
}

}  // namespace
}  // namespace qublet

#include "desk/busy_window.h"

#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QPushButton>
#include <QTest>

namespace qublet {
namespace {

class BusyWindowTest : public testing::Test {
 protected:
  BusyWindowTest() {
    window.resize(200, 100);
    window.show();
    QObject::connect(&button, &QPushButton::clicked, &button, [this] { ++clicks; });
  }
  void SetUp() override { ASSERT_TRUE(QTest::qWaitForWindowExposed(&window)); }

  void PostKey(int key) {
    QCoreApplication::postEvent(&button, new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier));
    QCoreApplication::postEvent(&button, new QKeyEvent(QEvent::KeyRelease, key, Qt::NoModifier));
  }

  QWidget window;
  QPushButton button{&window};
  int clicks = 0;
};

TEST_F(BusyWindowTest, HasTheWaitCursorAsLongAsItLives) {
  {
    const BusyWindow busy(window);
    EXPECT_EQ(window.cursor().shape(), Qt::WaitCursor);
  }
  EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(BusyWindowTest, ThrowsAwayWhatIsPressedMeanwhileToTheLast) {
  {
    BusyWindow busy(window);
    PostKey(Qt::Key_Space);
    busy.Repaint();
    PostKey(Qt::Key_Space);
  }
  QCoreApplication::processEvents();
  EXPECT_EQ(clicks, 0);
  PostKey(Qt::Key_Space);
  QCoreApplication::processEvents();
  EXPECT_EQ(clicks, 1);
}

TEST_F(BusyWindowTest, IsDueAWhileAfterTheLastTime) {
  BusyWindow busy(window);
  bool always_due_at_once = true;
  // A machine that is busy may be late once.
  for (int i = 0; i < 5; ++i) {
    QTest::qSleep(30);
    EXPECT_TRUE(busy.IsDue());
    busy.Repaint();
    always_due_at_once = always_due_at_once && busy.IsDue();
  }
  EXPECT_FALSE(always_due_at_once);
}

}  // namespace
}  // namespace qublet

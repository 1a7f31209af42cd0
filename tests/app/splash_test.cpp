#include "app/SplashFrm.h"

#include <gtest/gtest.h>

#include <QEvent>
#include <QLabel>
#include <QTest>
#include <QTimer>

namespace qublet {
namespace {

class PaintCount : public QObject {
 public:
  explicit PaintCount(QWidget& window) { window.installEventFilter(this); }
  int count = 0;

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count;
    return false;
  }
};

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

TEST(SplashTest, CanBeSeenWithPictureAndTitleBeforeTheMainWindowIsMade) {
  SplashFrm splash([](QWidget&) {});
  const auto* picture = splash.findChild<QLabel*>("Picture1");
  EXPECT_FALSE(picture->pixmap().isNull());
  EXPECT_EQ(splash.findChild<QLabel*>("TitleLabel")->text(), QStringLiteral("[Velmora] M3U Playlist Editor v2.1b"));
  EXPECT_EQ(splash.findChild<QLabel*>("Label1")->text(), QStringLiteral("QUBLET20 v2.1.93"));
  PaintCount painted(splash);
  splash.Begin();
  EXPECT_GE(painted.count, 1);
  for (const QLabel* label : splash.findChildren<QLabel*>()) {
    EXPECT_GE(label->width(), label->sizeHint().width()) << label->objectName().toStdString();
    EXPECT_LE(label->height(), label->sizeHint().height() * 2) << "no void: " << label->objectName().toStdString();
  }
}

}  // namespace
}  // namespace qublet

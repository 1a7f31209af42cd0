#include "desk/window_feedback.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QTest>
#include <QTimer>

namespace qublet {
namespace {

class Remark : public testing::Test {
 protected:
  Remark() {
    feedback.ShowIn(window, [this](const QString& text) { panel.setText(text); });
  }
  ~Remark() override { feedback.ShowNowhere(); }

  QTimer& Timer() { return *window.findChild<QTimer*>("RemarkTimer"); }

  QWidget window;
  QLabel panel{&window};
  WindowFeedback feedback;
};

TEST_F(Remark, StandsForTenSecondsInTheActivityPanel) {
  feedback.ShowRemark("done by the way");
  EXPECT_EQ(panel.text(), QStringLiteral("done by the way"));
  ASSERT_TRUE(Timer().isActive());
  EXPECT_EQ(Timer().intervalAsDuration(), std::chrono::seconds(10));
  Timer().start(0);
  EXPECT_TRUE(QTest::qWaitFor([&] { return panel.text().isEmpty(); }, 1000));
  EXPECT_FALSE(Timer().isActive());
}

TEST_F(Remark, GivesWayToTheNextActivityForGood) {
  feedback.ShowRemark("done by the way");
  feedback.ShowActivity("Saving file: a");
  EXPECT_EQ(panel.text(), QStringLiteral("Saving file: a"));
  EXPECT_FALSE(Timer().isActive());
}

TEST_F(Remark, IsNoneWithoutAWindow) {
  feedback.ShowNowhere();
  feedback.ShowRemark("done by the way");
  EXPECT_EQ(panel.text(), QString());
}

}  // namespace
}  // namespace qublet

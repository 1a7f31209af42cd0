#include "platform/qt/patient_application.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>
#include <new>

namespace qublet {
namespace {

class PatientApplicationTest : public testing::Test {
 protected:
  PatientApplicationTest() {
    Application().WhenMemoryWants([this] { ++told_; });
    button_.show();
  }
  ~PatientApplicationTest() override { Application().WhenMemoryWants({}); }

  static PatientApplication& Application() { return *static_cast<PatientApplication*>(qApp); }

  QPushButton button_;
  int told_ = 0;
};

TEST_F(PatientApplicationTest, GoesOnAfterWantOfMemoryAndTellsOfItOnce) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the toolkit's frames give nothing back of what they hold when an exception passes through them";
#endif
  QObject::connect(&button_, &QPushButton::clicked, [] { throw std::bad_alloc(); });
  QTest::mouseClick(&button_, Qt::LeftButton);
  QTest::mouseClick(&button_, Qt::LeftButton);
  EXPECT_EQ(told_, 0) << "not in the midst of it";
  EXPECT_TRUE(QTest::qWaitFor([&] { return told_ > 0; }));
  QTest::qWait(1);
  EXPECT_EQ(told_, 1);
  QTest::mouseClick(&button_, Qt::LeftButton);
  EXPECT_TRUE(QTest::qWaitFor([&] { return told_ > 1; }));
}

TEST_F(PatientApplicationTest, SaysNothingOtherwise) {
  int clicks = 0;
  QObject::connect(&button_, &QPushButton::clicked, [&] { ++clicks; });
  QTest::mouseClick(&button_, Qt::LeftButton);
  QTest::qWait(1);
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(told_, 0);
}

}  // namespace
}  // namespace qublet

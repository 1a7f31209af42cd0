#include "platform/qt/worker.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QTest>
#include <atomic>
#include <chrono>
#include <new>
#include <thread>

namespace qublet {
namespace {

using std::chrono::milliseconds;

class PaintCounter : public QLabel {
 public:
  int paints = 0;

 protected:
  void paintEvent(QPaintEvent* event) override {
    ++paints;
    QLabel::paintEvent(event);
    update();
  }
};

TEST(Worker, ComesBackWhenTheWorkIsDoneAndPaintsMeanwhile) {
  Worker worker;
  PaintCounter window;
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  const int before = window.paints;
  bool done = false;
  worker.Do([&] {
    std::this_thread::sleep_for(milliseconds(300));
    done = true;
  });
  EXPECT_TRUE(done);
  EXPECT_GT(window.paints, before + 3);
}

TEST(Worker, TakesNoInputMeanwhile) {
  Worker worker;
  QLabel window;
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  worker.Do([&] {
    QMetaObject::invokeMethod(&window, [&window] { QCoreApplication::postEvent(&window, new QCloseEvent()); });
    std::this_thread::sleep_for(milliseconds(200));
  });
  EXPECT_TRUE(window.isVisible());
}

TEST(Worker, ComesBackAtOnceFromWorkThatIsStartedAndAnswersOnItsThread) {
  Worker worker;
  std::atomic<bool> may_end = false;
  std::thread::id worked, answered;
  ASSERT_TRUE(worker.Start(
      [&] {
        worked = std::this_thread::get_id();
        while (!may_end) std::this_thread::sleep_for(milliseconds(1));
      },
      [&] { answered = std::this_thread::get_id(); }));
  EXPECT_FALSE(worker.Start([] {}, [] {})) << "one is under way";
  may_end = true;
  EXPECT_TRUE(QTest::qWaitFor([&] { return answered != std::thread::id(); }));
  EXPECT_EQ(answered, std::this_thread::get_id());
  EXPECT_NE(worked, answered);
  bool again = false;
  EXPECT_TRUE(worker.Start([] {}, [&] { again = true; }));
  EXPECT_TRUE(QTest::qWaitFor([&] { return again; }));
}

TEST(Worker, HandsOnWantOfMemory) {
  Worker worker;
  EXPECT_THROW(worker.Do([] { throw std::bad_alloc(); }), std::bad_alloc);
  bool answered = false;
  worker.Start([] { throw std::bad_alloc(); }, [&] { answered = true; });
  EXPECT_TRUE(QTest::qWaitFor([&] { return answered; }));
}

TEST(Worker, HoldsAnAnswerBackUntilWhoWaitsHasComeBack) {
  Worker worker;
  bool answered = false;
  worker.Start([] {}, [&] { answered = true; });
  worker.Do([] { std::this_thread::sleep_for(milliseconds(200)); });
  EXPECT_FALSE(answered);
  EXPECT_TRUE(QTest::qWaitFor([&] { return answered; }));
}

}  // namespace
}  // namespace qublet

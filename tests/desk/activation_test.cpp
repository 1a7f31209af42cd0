#include "desk/activation.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QMenu>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <memory>
#include <vector>

namespace qublet {
namespace {

// A main window and a tool's window that notes why it comes to the front.
class ActivationTest : public testing::Test {
 protected:
  ActivationTest() {
    main.setWindowTitle(QStringLiteral("main"));
    tool.setWindowTitle(QStringLiteral("tool"));
    new Activation(tool, [this](Activation::Cause cause) { causes.push_back(cause); });
    Show(main);
  }

  static void Show(QWidget& window) {
    window.resize(200, 100);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    Settle();
  }
  static void ComeForward(QWidget& window) {
    window.raise();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    Settle();
  }
  // Until the window system has nothing more to say.
  static void Settle() { QTest::qWait(100); }

  QWidget main;
  QDialog tool;
  std::vector<Activation::Cause> causes;
};

using Causes = std::vector<Activation::Cause>;
constexpr auto kOpened = Activation::Cause::kOpened;
constexpr auto kReturned = Activation::Cause::kReturned;

TEST_F(ActivationTest, TellsThatTheWindowWasOpenedAndOpenedAgain) {
  Show(tool);
  EXPECT_EQ(causes, Causes{kOpened});
  tool.hide();
  ComeForward(main);
  Show(tool);
  EXPECT_EQ(causes, (Causes{kOpened, kOpened}));
}

TEST_F(ActivationTest, TellsThatTheUserCameBackFromAnotherWindowOfTheProgram) {
  Show(tool);
  ComeForward(main);
  ComeForward(tool);
  EXPECT_EQ(causes, (Causes{kOpened, kReturned}));
}

TEST_F(ActivationTest, TellsOfAReturnFromAWindowThatIsGone) {
  Show(tool);
  auto other = std::make_unique<QDialog>();
  Show(*other);
  other->hide();
  other.reset();
  ComeForward(tool);
  EXPECT_EQ(causes, (Causes{kOpened, kReturned}));
}

TEST_F(ActivationTest, SaysNothingAfterAMessageBox) {
  Show(tool);
  QTimer::singleShot(200, &tool, [] { QApplication::activeModalWidget()->close(); });
  QMessageBox box(QMessageBox::Information, QStringLiteral("title"), QStringLiteral("text"), QMessageBox::Ok, &tool);
  box.exec();
  ComeForward(tool);
  EXPECT_EQ(causes, Causes{kOpened});
}

TEST_F(ActivationTest, SaysNothingAfterAPopUpMenu) {
  Show(tool);
  QMenu menu(&tool);
  menu.addAction(QStringLiteral("one"));
  menu.popup(tool.mapToGlobal(QPoint(10, 10)));
  Settle();
  QTest::keyClick(&menu, Qt::Key_Escape);
  Settle();
  EXPECT_EQ(causes, Causes{kOpened});
}

}  // namespace
}  // namespace qublet

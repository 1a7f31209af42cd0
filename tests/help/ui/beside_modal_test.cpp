#include "help/ui/beside_modal.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <memory>

#include "support/modal_work.h"

namespace qublet {
namespace {

// A window with a text box.
struct Window : QDialog {
  explicit Window(QWidget* parent = nullptr) : QDialog(parent), box(new QLineEdit(this)) {
    (new QVBoxLayout(this))->addWidget(box);
    create();
  }
  QLineEdit* box;
};

// A book beside a main window, which opens modal windows.
class BesideModalTest : public testing::Test {
 protected:
  BesideModalTest() {
    Show(main);
    Show(book);
  }

  static void Show(QWidget& window) {
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  }
  std::unique_ptr<Window> OpenModal(QWidget& parent) {
    auto modal = std::make_unique<Window>(&parent);
    modal->setModal(true);
    Show(*modal);
    return modal;
  }
  // Clicks and types as the window system hands it on, which stops what a modal window keeps from others.
  static bool CanBeTypedInto(Window& window) {
    window.box->clear();
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, window.box->geometry().center());
    if (QApplication::focusWidget() != window.box) return false;
    QTest::keyClick(window.windowHandle(), Qt::Key_X);
    return window.box->text() == QStringLiteral("x");
  }
  bool BookCanBeTypedInto() {
    book.activateWindow();
    return ComesForward(book) && CanBeTypedInto(book);
  }

  Window main;
  Window book;
  BesideModal* beside = new BesideModal(book);
};

TEST_F(BesideModalTest, TheBookIsReadWhileAModalWindowWaits) {
  const auto modal = OpenModal(main);
  EXPECT_TRUE(BookCanBeTypedInto());
  modal->activateWindow();
  ASSERT_TRUE(ComesForward(*modal));
  EXPECT_TRUE(CanBeTypedInto(*modal));
}

TEST_F(BesideModalTest, OtherWindowsStayBlocked) {
  Window other;
  Show(other);
  const auto modal = OpenModal(main);
  QTest::mouseClick(other.windowHandle(), Qt::LeftButton, Qt::NoModifier, other.box->geometry().center());
  EXPECT_NE(QApplication::focusWidget(), other.box);
}

TEST_F(BesideModalTest, TheBookIsReadThroughModalWindowsOfModalWindowsAndAfterThem) {
  auto first = OpenModal(main);
  auto second = OpenModal(*first);
  EXPECT_TRUE(BookCanBeTypedInto());
  second.reset();
  QCoreApplication::processEvents();
  EXPECT_TRUE(BookCanBeTypedInto());
  EXPECT_EQ(book.windowHandle()->transientParent(), first->windowHandle());
  first.reset();
  QCoreApplication::processEvents();
  EXPECT_TRUE(book.isVisible());
  EXPECT_TRUE(BookCanBeTypedInto());
  EXPECT_EQ(book.windowHandle()->transientParent(), nullptr);
}

}  // namespace
}  // namespace qublet

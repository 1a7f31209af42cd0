#include <gtest/gtest.h>

#include <QHeaderView>

#include "support/main_window.h"

namespace qublet {
namespace {

class ListColumns : public testing::Test {
 protected:
  ListColumns() {
    window.drives.Write("a.mp3", kNoise);
    window.Start();
    window.Add("c:\\a.mp3");
    window.main->resize(1500, 400);
    QCoreApplication::processEvents();
  }
  QHeaderView& Header() { return *window.List().header(); }
  QPoint RightBorderOf(int column) {
    return {Header().sectionViewportPosition(column) + Header().sectionSize(column), Header().height() / 2};
  }
  void Drag(QPoint from, int by) {
    QTest::mousePress(Header().viewport(), Qt::LeftButton, {}, from);
    for (int step = 1; step <= 4; ++step) {
      const QPoint point = from + QPoint(by * step / 4, 0);
      QMouseEvent move(QEvent::MouseMove, point, Header().viewport()->mapToGlobal(point), Qt::NoButton,
                       Qt::LeftButton, Qt::NoModifier);
      QCoreApplication::sendEvent(Header().viewport(), &move);
    }
    QTest::mouseRelease(Header().viewport(), Qt::LeftButton, {}, from + QPoint(by, 0));
  }
  void ExpectHiddenOnesHidden() {
    for (const int column : {kHiddenLen, kHiddenSize}) {
      EXPECT_TRUE(Header().isSectionHidden(column));
      EXPECT_EQ(Header().sectionSize(column), 0);
      EXPECT_EQ(window.List().columnWidth(column), 0);
    }
  }

  MainWindow window;
};

TEST_F(ListColumns, TheHiddenOnesCannotBeDraggedOpen) {
  const int mode = Header().sectionSize(kMode);
  for (const int off : {-3, -2, -1, 0, 1, 2, 3}) {
    Drag(RightBorderOf(kMode) + QPoint(off, 0), 40);
    ExpectHiddenOnesHidden();
  }
  EXPECT_GT(Header().sectionSize(kMode), mode) << "the column to their left is what moves";
}

TEST_F(ListColumns, TheHiddenOnesCannotBeOpenedByADoubleClickOnABorder) {
  for (const int off : {-3, -2, -1, 0, 1, 2, 3}) {
    QTest::mouseDClick(Header().viewport(), Qt::LeftButton, {}, RightBorderOf(kMode) + QPoint(off, 0));
    QTest::mouseDClick(Header().viewport(), Qt::LeftButton, {}, RightBorderOf(kOriginalOrder) + QPoint(off, 0));
    ExpectHiddenOnesHidden();
  }
}

TEST_F(ListColumns, TheHiddenOnesCannotBeReachedByKeys) {
  window.List().setFocus();
  for (int i = 0; i < 20; ++i) {
    QTest::keyClick(&window.List(), Qt::Key_Right);
    EXPECT_NE(window.List().currentIndex().column(), kHiddenLen);
    EXPECT_NE(window.List().currentIndex().column(), kHiddenSize);
  }
  QTest::keyClick(&window.List(), Qt::Key_Plus, Qt::ControlModifier | Qt::KeypadModifier);
  ExpectHiddenOnesHidden();
  EXPECT_EQ(Header().focusPolicy(), Qt::NoFocus);
}

TEST_F(ListColumns, ANarrowedColumnCanBeWidenedAgain) {
  Drag(RightBorderOf(kTime), -200);
  EXPECT_EQ(Header().sectionSize(kTime), 0);
  Drag(RightBorderOf(kTime) + QPoint(2, 0), 50);
  EXPECT_GT(Header().sectionSize(kTime), 0);
  ExpectHiddenOnesHidden();
}

}  // namespace
}  // namespace qublet

#include "support/list_mouse_test.h"

namespace qublet {
namespace {

using ListEventsTest = ListMouseTest;

TEST_F(ListEventsTest, ARightButtonDragTakesTheRowsAlongOneRowAMove) {
  Press(On(2));
  EXPECT_EQ(window.Selected(), "-x---") << "a press on another row selects it";
  Move(On(2));
  EXPECT_EQ(Order(), "abcde");
  Move(On(3));
  EXPECT_EQ(Order(), "acbde");
  Move(On(4));
  EXPECT_EQ(Order(), "acdbe");
  EXPECT_EQ(window.Selected(), "---x-");
  EXPECT_TRUE(window.document->PlaylistChanged);
  Move(On(3));
  Move(On(2));
  EXPECT_EQ(Order(), "abcde");
  Release(On(2));
  EXPECT_FALSE(Menu().isVisible());
}

TEST_F(ListEventsTest, AMoveThatSkipsRowsMovesByOne) {
  Press(On(1));
  Move(On(1));
  Move(On(5));
  EXPECT_EQ(Order(), "bacde");
  Move(On(5));
  EXPECT_EQ(Order(), "bcade") << "the next move catches up";
  Release(On(5));
}

TEST_F(ListEventsTest, TheFirstMoveSetsTheAnchorWhereverThePressWas) {
  Press(On(2));
  Move(On(4));
  EXPECT_EQ(Order(), "abcde");
  Move(On(5));
  EXPECT_EQ(Order(), "acbde");
  Release(On(5));
}

TEST_F(ListEventsTest, SeveralSelectedRowsMoveTogetherAndStopAtTheEnds) {
  Select({2, 4});
  Press(On(4));
  EXPECT_EQ(window.Selected(), "-x-x-") << "a press on a selected row keeps the selection";
  Move(On(4));
  Move(On(5));
  EXPECT_EQ(Order(), "acbed");
  EXPECT_EQ(window.Selected(), "--x-x");
  Move(On(5));
  Move(On(4));
  Move(On(3));
  Move(On(2));
  EXPECT_EQ(Order(), "badce") << "two up, then row 1 is reached";
  Move(On(1));
  EXPECT_EQ(Order(), "badce");
  Release(On(1));
  EXPECT_FALSE(Menu().isVisible());
  EXPECT_EQ(window.Panel(1), "2 Items") << "the status follows when the button goes up";
}

TEST_F(ListEventsTest, BelowTheLastRowNothingMoves) {
  Press(On(4));
  Move(On(4));
  Move(On(99));
  EXPECT_EQ(Order(), "abcde");
  Release(On(99));
  EXPECT_TRUE(Menu().isVisible());
}

TEST_F(ListEventsTest, AReleaseForgetsTheAnchor) {
  Press(On(2));
  Move(On(2));
  Release(On(2));
  Menu().close();
  Press(On(2));
  Move(On(4));
  EXPECT_EQ(Order(), "abcde");
  Release(On(4));
}

TEST_F(ListEventsTest, ALeftDragReordersNothing) {
  Press(On(2, kTime), Qt::LeftButton);
  Move(On(3, kTime), Qt::LeftButton);
  Move(On(4, kTime), Qt::LeftButton);
  Release(On(4, kTime), Qt::LeftButton);
  EXPECT_EQ(Order(), "abcde");
  EXPECT_EQ(window.Selected(), "-xxx-") << "it draws a selection";
  EXPECT_FALSE(Menu().isVisible());
}

TEST_F(ListEventsTest, ARightPressAndReleasePopsUpTheMenuAtThePointer) {
  Press(On(3));
  EXPECT_FALSE(Menu().isVisible()) << "not before the button is up";
  Release(On(3));
  EXPECT_TRUE(Menu().isVisible());
  EXPECT_EQ(Menu().pos(), View().mapToGlobal(On(3)));
  EXPECT_EQ(window.Selected(), "--x--");
  EXPECT_EQ(window.Rows().FocusedRow(), 3);
  EXPECT_TRUE(window.Action("MEditRemove")->isEnabled());
}

TEST_F(ListEventsTest, AMenuOnASelectedRowKeepsTheSelection) {
  Select({2, 3});
  Press(On(3));
  Release(On(3));
  EXPECT_EQ(window.Selected(), "-xx--");
  EXPECT_TRUE(Menu().isVisible());
}

TEST_F(ListEventsTest, AMenuBelowTheRowsKeepsTheSelection) {
  Select({2, 3});
  Press(On(99));
  Release(On(99));
  EXPECT_EQ(window.Selected(), "-xx--");
  EXPECT_TRUE(Menu().isVisible());
}

TEST_F(ListEventsTest, ARightDragThatMovesNothingStillPopsUpTheMenu) {
  Select({1, 5});
  Press(On(1));
  Move(On(1));
  Move(On(2));
  Move(On(1));
  Release(On(1));
  EXPECT_EQ(Order(), "abcde");
  EXPECT_TRUE(Menu().isVisible());
}

TEST_F(ListEventsTest, ASecondQuickRightClickAfterADragPopsUpTheMenu) {
  Press(On(2));
  Move(On(2));
  Move(On(3));
  Release(On(3));
  ASSERT_EQ(Order(), "acbde");
  Mouse(QEvent::MouseButtonDblClick, On(3), Qt::RightButton, Qt::RightButton);
  Release(On(3));
  EXPECT_TRUE(Menu().isVisible());
}

TEST_F(ListEventsTest, TheContextMenuKeyPopsUpTheMenuAtTheCurrentRow) {
  window.Rows().SetFocusedRow(4);
  const QPoint middle = View().rect().center();
  QContextMenuEvent event(QContextMenuEvent::Keyboard, middle, View().mapToGlobal(middle));
  QCoreApplication::sendEvent(&window.List(), &event);
  ASSERT_TRUE(Menu().isVisible());
  EXPECT_EQ(window.List().GetRowAtPoint(View().mapFromGlobal(Menu().pos()).y()), 3);
  Menu().close();
  QTest::keyClick(&window.List(), Qt::Key_F10, Qt::ShiftModifier);
  ASSERT_TRUE(Menu().isVisible());
  EXPECT_EQ(window.List().GetRowAtPoint(View().mapFromGlobal(Menu().pos()).y()), 3);
}

TEST_F(ListEventsTest, TheContextMenuKeyWorksInAnEmptyList) {
  window.Run("MFileNew");
  ASSERT_EQ(window.Rows().Count(), 0);
  QTest::keyClick(&window.List(), Qt::Key_F10, Qt::ShiftModifier);
  EXPECT_TRUE(Menu().isVisible());
}

TEST_F(ListEventsTest, TheMouseWayToAContextMenuWaitsForTheRelease) {
  QContextMenuEvent event(QContextMenuEvent::Mouse, On(2), View().mapToGlobal(On(2)));
  QCoreApplication::sendEvent(&View(), &event);
  EXPECT_FALSE(Menu().isVisible());
}

TEST_F(ListEventsTest, ALeftPressOnASelectedRowSettlesTheSelectionOnlyOnRelease) {
  Select({2, 3, 4});
  Press(On(3), Qt::LeftButton);
  EXPECT_EQ(window.Selected(), "-xxx-");
  Release(On(3), Qt::LeftButton);
  EXPECT_EQ(window.Selected(), "--x--");
  EXPECT_EQ(window.Panel(1), "Track: 3/5");
}

TEST_F(ListEventsTest, ACtrlPressOnASelectedRowLeavesItOutOnlyOnRelease) {
  Select({2, 3, 4});
  Press(On(3), Qt::LeftButton, Qt::ControlModifier);
  EXPECT_EQ(window.Selected(), "-xxx-");
  Release(On(3), Qt::LeftButton, Qt::ControlModifier);
  EXPECT_EQ(window.Selected(), "-x-x-");
}

class ListKeys : public ListMouseTest {
 protected:
  ListKeys() {
    window.main->activateWindow();
    window.List().setFocus();
  }
  // Through the window, where menu entries and the list compete for a key.
  void Type(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.main));
    QTest::keyClick(window.main->windowHandle(), key, modifiers);
  }
};

TEST_F(ListKeys, RunTheirCommandWithEnabledEntries) {
  Select({2});
  window.main->findChild<RowList*>("ListView1")->setFocus();
  Type(Qt::Key_Delete);
  EXPECT_EQ(Order(), "acde");
  window.dialogs.folders = {"c:\\m\\b.mp3"};
  Type(Qt::Key_Insert);
  EXPECT_EQ(Order(), "acdeb");
  EXPECT_EQ(window.dialogs.browse_titles.size(), 2U) << "once, not by the list and the entry";
}

TEST_F(ListKeys, RunTheirCommandEvenWhereTheMenuEntryIsDisabled) {
  Select({2});
  window.Action("MEditRemove")->setEnabled(false);
  window.Action("MEditAddDir")->setEnabled(false);
  Type(Qt::Key_Delete);
  EXPECT_EQ(Order(), "acde");
  window.dialogs.folders = {"c:\\m\\b.mp3"};
  window.Action("MEditAddDir")->setEnabled(false);
  Type(Qt::Key_Insert, Qt::KeypadModifier);
  EXPECT_EQ(Order(), "acdeb");
}

TEST_F(ListKeys, BothEnterKeysPlayTheSelectedRowsAlsoWhereTheEntryIsDisabled) {
  Select({2});
  window.Action("MEditPlaySel")->setEnabled(false);
  Type(Qt::Key_Return);
  Type(Qt::Key_Enter, Qt::KeypadModifier);
  EXPECT_EQ(window.shell.opened.size(), 2U);
}

TEST_F(ListKeys, AltAndOtherShortcutsStayTheMenus) {
  Select({2});
  window.List().setFocus();
  window.Run("MEditMoveDown");
  Type(Qt::Key_Up, Qt::AltModifier);
  EXPECT_EQ(Order(), "abcde");
  Type(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(window.Selected(), "xxxxx");
}

}  // namespace
}  // namespace qublet

#include "support/list_mouse_test.h"

namespace qublet {
namespace {

// Selecting as a person does it, in the list of the main window.
class Selecting : public ListMouseTest {
 protected:
  Selecting() {
    window.main->activateWindow();
    window.List().setFocus();
    QObject::connect(&window.List(), &RowList::rowsSelected, [this] {
      ++refreshes;
      focused = window.Rows().FocusedRow();
    });
  }

  void Click(QPoint point, Qt::KeyboardModifiers modifiers = {}) {
    Press(point, Qt::LeftButton, modifiers);
    Release(point, Qt::LeftButton, modifiers);
  }
  // Through the window, where menu entries and the list compete for a key.
  void Type(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.main));
    QTest::keyClick(window.main->windowHandle(), key, modifiers);
  }

  int refreshes = 0;
  int focused = 0;  // at the last refresh
};

TEST_F(Selecting, AnotherRowThatWasSelectedAndLeftOutAgainDoesNotCount) {
  Click(On(3));
  Click(On(1), Qt::ControlModifier);
  Click(On(1), Qt::ControlModifier);
  ASSERT_EQ(window.Selected(), "--x--");
  EXPECT_EQ(window.Rows().FocusedRow(), 1) << "the focus stays where the mouse was";
  EXPECT_EQ(window.Panel(1), "Track: 3/5");
  window.Run("MEditFileInfo");
  EXPECT_EQ(window.shell.properties, std::vector<std::string>{"c:\\m\\c.mp3"});
  Type(Qt::Key_Return);
  EXPECT_EQ(window.shell.opened.size(), 1U);
}

TEST_F(Selecting, ReplacesTheOneSelectedRow) {
  window.drives.Write("new/x.mp3", kNoise);
  std::filesystem::remove(window.drives.C() / "m/c.mp3");
  Click(On(3));
  Click(On(1), Qt::ControlModifier);
  Click(On(1), Qt::ControlModifier);
  ASSERT_TRUE(window.Action("Mreloc")->isEnabled());
  window.dialogs.open_names = {"c:\\new\\x.mp3"};
  window.Run("Mreloc");
  EXPECT_EQ(Order(), "abxde");
}

TEST_F(Selecting, ByLettersRefreshesOnceWithTheFocusMoved) {
  Click(On(1));
  refreshes = 0;
  Type(Qt::Key_D);
  EXPECT_EQ(window.Selected(), "---x-");
  EXPECT_EQ(focused, 4);
  EXPECT_EQ(refreshes, 1);
  EXPECT_EQ(window.Panel(1), "Track: 4/5");
}

TEST_F(Selecting, ByArrowKeysRefreshesOnceAKey) {
  Click(On(1));
  refreshes = 0;
  Type(Qt::Key_Down);
  EXPECT_EQ(refreshes, 1);
  Type(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(refreshes, 2);
  EXPECT_EQ(window.Selected(), "-xx--");
  EXPECT_EQ(window.Panel(1), "2 Items");
}

TEST_F(Selecting, KeysOfDisabledMenuEntriesLeaveItAlone) {
  window.Run("MEditSelAll");
  for (const auto& [key, entry] :
       {std::pair{Qt::Key_Up, "MEditMoveUp"}, std::pair{Qt::Key_Down, "MEditMoveDown"},
        std::pair{Qt::Key_Home, "MEditSelTop"}, std::pair{Qt::Key_End, "MEditSelBottom"}}) {
    ASSERT_FALSE(window.Action(entry)->isEnabled()) << entry;
    Type(key, Qt::AltModifier);
    EXPECT_EQ(window.Selected(), "xxxxx") << entry;
    EXPECT_EQ(Order(), "abcde") << entry;
  }
  Type(Qt::Key_Return, Qt::AltModifier);
  EXPECT_TRUE(window.shell.opened.empty()) << "\"Properties\" is no \"Play\"";
}

TEST_F(Selecting, AClickIntoTheEmptyRoomLeavesNoneSelected) {
  Click(On(2));
  Click(On(4), Qt::ShiftModifier);
  ASSERT_EQ(window.Selected(), "-xxx-");
  Click(On(99), Qt::ControlModifier);
  Click(On(99), Qt::ShiftModifier);
  EXPECT_EQ(window.Selected(), "-xxx-");
  Press(On(99), Qt::LeftButton);
  EXPECT_EQ(window.Selected(), "-----");
  Release(On(99), Qt::LeftButton);
  EXPECT_EQ(window.Selected(), "-----");
  EXPECT_EQ(window.Panel(1), "Total: 5");
  EXPECT_EQ(window.Rows().FocusedRow(), 4) << "the focus stays";
  EXPECT_EQ(window.List().currentIndex().row(), 3);
}

TEST_F(Selecting, CtrlAndShiftExtendIt) {
  Click(On(1));
  Click(On(3), Qt::ControlModifier);
  Click(On(5), Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(window.Selected(), "x-xxx");
  Click(On(5), Qt::ShiftModifier);
  EXPECT_EQ(window.Selected(), "--xxx") << "Shift alone begins anew";
}

TEST_F(Selecting, CtrlAndShiftExtendWhatACommandHasSelected) {
  Click(On(5));
  Click(On(4), Qt::ShiftModifier);
  window.Run("MEditSelNone");
  Select({1});
  Type(Qt::Key_Up, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(window.Selected(), "x-xxx");
}

TEST_F(Selecting, MovingKeysReduceItAlsoWhereTheFocusCannotMove) {
  for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Up, Qt::Key_PageUp}) {
    Click(On(1));
    window.Run("MEditSelAll");
    Type(key);
    EXPECT_EQ(window.Selected(), "x----") << key;
    EXPECT_EQ(window.Panel(1), "Track: 1/5") << key;
  }
  for (const Qt::Key key : {Qt::Key_End, Qt::Key_Down, Qt::Key_PageDown}) {
    Click(On(5));
    window.Run("MEditSelAll");
    Type(key);
    EXPECT_EQ(window.Selected(), "----x") << key;
  }
}

TEST_F(Selecting, OnlyBareKeysRunACommand) {
  Click(On(2));
  for (const char* name : {"MEditRemove", "MEditAddDir", "MEditPlaySel"}) window.Action(name)->setEnabled(false);
  for (const Qt::KeyboardModifiers held :
       {Qt::KeyboardModifiers(Qt::ShiftModifier), Qt::KeyboardModifiers(Qt::ControlModifier),
        Qt::KeyboardModifiers(Qt::AltModifier), Qt::ControlModifier | Qt::ShiftModifier}) {
    for (const Qt::Key key : {Qt::Key_Insert, Qt::Key_Delete, Qt::Key_Enter}) {
      QTest::keyClick(&window.List(), key, held);
      EXPECT_EQ(Order(), "abcde") << key << held;
    }
  }
  EXPECT_EQ(window.dialogs.browse_titles.size(), 1U) << "the one that the fixture opened";
  EXPECT_TRUE(window.shell.opened.empty());
  EXPECT_EQ(window.Selected(), "-x---");
}

TEST_F(Selecting, DrawsItFromTheEmptyRoomUpwards) {
  Press(On(99), Qt::LeftButton);
  Move(On(4), Qt::LeftButton);
  EXPECT_EQ(window.Selected(), "---xx");
  Move(On(5), Qt::LeftButton);
  EXPECT_EQ(window.Selected(), "----x");
  Release(On(5), Qt::LeftButton);
  EXPECT_EQ(window.Selected(), "----x");
}

}  // namespace
}  // namespace qublet

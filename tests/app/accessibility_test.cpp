#include <gtest/gtest.h>

#include <QAccessible>
#include <QToolButton>

#include "support/main_window.h"

namespace qublet {
namespace {

class Accessibility : public testing::Test {
 protected:
  Accessibility() {
    window.drives.Write("a.mp3", kNoise);
    window.drives.Write("list.m3u", "c:\\a.mp3\r\nc:\\gone.mp3\r\n");
    window.Start();
    window.Add("c:\\list.m3u");
  }
  static QAccessibleInterface& InterfaceOf(QObject* object) { return *QAccessible::queryAccessibleInterface(object); }
  static std::string NameOf(QObject* object) { return InterfaceOf(object).text(QAccessible::Name).toStdString(); }
  static std::string DescriptionOf(QObject* object) {
    return InterfaceOf(object).text(QAccessible::Description).toStdString();
  }
  std::string Cell(int row, int column) {
    return InterfaceOf(&window.List()).tableInterface()->cellAt(row, column)->text(QAccessible::Name).toStdString();
  }

  MainWindow window;
};

TEST_F(Accessibility, SpeaksTheRowsByNameLengthAndState) {
  EXPECT_EQ(Cell(0, kFileName), "a.mp3, 0:00");
  EXPECT_EQ(Cell(1, kFileName), "gone.mp3, missing");
  EXPECT_EQ(Cell(0, kPath), "c:\\");
  window.Rows().SetCell(1, kTime, "3:05");
  window.Rows().SetIcon(1, RowIcon::kGreen);
  EXPECT_EQ(Cell(0, kFileName), "a.mp3, 3:05, green mark");
}

TEST_F(Accessibility, TellsWhichRowsAreSelectedAndLetsThemBeSelected) {
  window.Run("MEditSelNone");
  QAccessibleTableInterface& table = *InterfaceOf(&window.List()).tableInterface();
  EXPECT_EQ(table.selectedRows(), QList<int>());
  window.Rows().SetSelected(2, true);
  EXPECT_EQ(table.selectedRows(), QList<int>{1});
  EXPECT_EQ(table.selectedRowCount(), 1);
  EXPECT_TRUE(table.cellAt(1, 0)->state().selected);
  EXPECT_TRUE(table.cellAt(1, 3)->tableCellInterface()->isSelected());
  EXPECT_FALSE(table.cellAt(0, 0)->state().selected);
  EXPECT_TRUE(InterfaceOf(&window.List()).state().multiSelectable);
  EXPECT_TRUE(table.selectRow(0));
  EXPECT_TRUE(table.unselectRow(1));
  EXPECT_EQ(window.Selected(), "x-");
  EXPECT_EQ(window.Panel(1), "Track: 1/2") << "the window follows";
  table.cellAt(0, 0)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  EXPECT_EQ(window.Selected(), "--");
  EXPECT_FALSE(table.selectRow(2));
}

TEST_F(Accessibility, KnowsNoHiddenColumns) {
  QAccessibleInterface& list = InterfaceOf(&window.List());
  QAccessibleTableInterface& table = *list.tableInterface();
  const auto headers = [&] {
    std::string names;
    for (int i = 0; i < table.columnCount(); ++i) names += table.columnDescription(i).toStdString() + " ";
    return names;
  };
  EXPECT_EQ(headers(), "FileName Time Size Path ID Layer Bitrate Samplerate Mode Original Order ");
  EXPECT_EQ(list.childCount(), 3 * 10) << "the header and two rows";
  EXPECT_EQ(list.child(9)->text(QAccessible::Name).toStdString(), "Original Order");
  EXPECT_EQ(list.indexOfChild(table.cellAt(1, 9)), 29);
  QAccessibleInterface* size = table.cellAt(0, 2);
  window.List().setColumnHidden(kTime, true);
  EXPECT_EQ(headers(), "FileName Size Path ID Layer Bitrate Samplerate Mode Original Order ");
  EXPECT_EQ(table.cellAt(0, 1), size) << "a cell stays the same one";
  EXPECT_EQ(size->tableCellInterface()->columnIndex(), 1);
  EXPECT_EQ(size->tableCellInterface()->columnHeaderCells().at(0)->text(QAccessible::Name).toStdString(), "Size");
}

TEST_F(Accessibility, ForgetsRowsThatAreGone) {
  QAccessibleTableInterface& table = *InterfaceOf(&window.List()).tableInterface();
  ASSERT_NE(table.cellAt(1, 0), nullptr);
  window.Run("MEditSelAll");
  window.Run("MEditRemove");
  EXPECT_EQ(table.rowCount(), 0);
  EXPECT_EQ(table.cellAt(1, 0), nullptr);
  EXPECT_EQ(DescriptionOf(&window.List()), "Drop music files, folders or playlists here, or press Insert");
}

TEST_F(Accessibility, NamesListToolbarAndButtons) {
  EXPECT_EQ(NameOf(&window.List()), "Playlist");
  EXPECT_EQ(DescriptionOf(&window.List()), "The items of the playlist, one row each");
  auto* toolbar = window.main->findChild<Toolbar*>("Toolbar1");
  EXPECT_EQ(NameOf(toolbar), "Toolbar");
  EXPECT_NE(DescriptionOf(toolbar), "");
  for (QToolButton* button : toolbar->findChildren<QToolButton*>(Qt::FindDirectChildrenOnly)) {
    if (button->defaultAction() == nullptr) continue;  // the arrow of a bar that is too long
    EXPECT_EQ(NameOf(button), button->defaultAction()->text().toStdString());
    EXPECT_EQ(DescriptionOf(button), button->defaultAction()->toolTip().toStdString());
  }
}

TEST_F(Accessibility, ReadsEachPanelsTextAndSaysWhatItIsAbout) {
  const std::vector<std::string> names{"Items", "Length", "Size", "Activity"};
  for (int number = 1; number <= 4; ++number) {
    auto* panel = window.main->findChild<QLabel*>(QStringLiteral("Panel%1").arg(number));
    EXPECT_EQ(NameOf(panel), window.Panel(number));
    EXPECT_EQ(NameOf(panel->parentWidget()), names[static_cast<std::size_t>(number - 1)]);
  }
}

TEST_F(Accessibility, TheListHasTheKeyboardFromTheStartAndKeepsItUnderTab) {
  window.main->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.main));
  EXPECT_EQ(window.main->focusWidget(), &window.List());
  QTest::keyClick(window.main->windowHandle(), Qt::Key_Tab);
  EXPECT_EQ(window.main->focusWidget(), &window.List()) << "all else is reached by menu and shortcuts";
}

}  // namespace
}  // namespace qublet

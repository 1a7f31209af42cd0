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

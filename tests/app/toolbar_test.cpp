#include <gtest/gtest.h>

#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>

#include "support/main_window.h"

namespace qublet {
namespace {

class ToolbarTest : public testing::Test {
 protected:
  ToolbarTest() { window.Start(); }

  Toolbar& Bar() { return *window.main->findChild<Toolbar*>("Toolbar1"); }
  QAction* Button(const char* key) {
    return window.main->findChild<QAction*>(QStringLiteral("Toolbar1 %1").arg(QString::fromUtf8(key)));
  }
  void Press(const char* key) { QTest::mouseClick(Bar().widgetForAction(Button(key)), Qt::LeftButton); }
  // Keys of the buttons from left to right, "|" for a gap.
  std::string Shown() {
    std::string keys;
    for (const QAction* action : Bar().actions())
      keys += action->isSeparator() ? "|" : action->text().toStdString() + ";";
    return keys;
  }
  QPoint BesideTheButtons() { return {Bar().width() - 3, Bar().height() / 2}; }

  // Opens the form by a double click and works in it.
  void Customise(const std::function<void(QDialog&)>& work) {
    QTimer::singleShot(0, [&] {
      auto* form = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(form, nullptr);
      work(*form);
    });
    QTest::mouseDClick(&Bar(), Qt::LeftButton, {}, BesideTheButtons());
  }

  MainWindow window;
};

void Choose(QDialog& form, const char* list, const char* key) {
  auto* items = form.findChild<QListWidget*>(QString::fromUtf8(list));
  items->setCurrentItem(items->findItems(QString::fromUtf8(key), Qt::MatchExactly).value(0));
}

void Click(QDialog& form, const char* button) {
  form.findChild<QPushButton*>(QString::fromUtf8(button))->click();
}

constexpr const char* kAll =
    "New;Open;Save;|Add Items;Remove Items;|Move Items Up;Move Items Down;|Play Items;Preview Playlist;Edit Id3 Tag;|"
    "Tools Drop Down;|Help;|";

TEST_F(ToolbarTest, HasItsButtonsInTheirOrderWithTheirTips) {
  EXPECT_EQ(Shown(), kAll);
  EXPECT_EQ(Button("New")->toolTip().toStdString(), "New Playlist...");
  EXPECT_EQ(Button("Edit Id3 Tag")->toolTip().toStdString(), "Get the File info/Edit the ID3 Tag...");
  EXPECT_EQ(Button("Tools Drop Down")->toolTip().toStdString(), "Special Functions");
}

TEST_F(ToolbarTest, KeepsEveryButtonEnabled) {
  for (const QAction* action : Bar().actions()) EXPECT_TRUE(action->isEnabled()) << action->text().toStdString();
}

TEST_F(ToolbarTest, SavesToTheRelativeFolderWhereTheUserWantsThat) {
  window.drives.Write("one/a.mp3", kNoise);
  window.Add("c:\\one\\a.mp3");
  window.dialogs.save_names = {"c:\\one\\list.m3u", "c:\\one\\other.m3u"};
  window.settings->SActi = false;
  Press("Save");
  EXPECT_EQ(window.drives.Read("one/list.m3u"), "c:\\one\\a.mp3\r\n");
  window.settings->SActi = true;
  Press("Save");
  EXPECT_EQ(window.drives.Read("one/other.m3u"), "a.mp3\r\n");
}

TEST_F(ToolbarTest, RunsACommandWhoseMenuEntryIsDisabled) {
  EXPECT_FALSE(window.Action("MEditMoveUp")->isEnabled());
  Press("Move Items Up");
  EXPECT_EQ(window.Panel(1), "Total: 0");
}

TEST_F(ToolbarTest, DropsDownTheSpecialFunctions) {
  const QMenu* menu = Button("Tools Drop Down")->menu();
  std::string captions;
  for (const QAction* entry : menu->actions()) captions += entry->text().toStdString() + "\n";
  EXPECT_EQ(captions,
            "Search Playlist...\nPurge Playlist...\nRename Files...\nGenerate Report Wizard...\n"
            "Autocreate Playlists Wizard...\nCreate MP3 CD-ROM Wizard...\n");
  auto* button = qobject_cast<QToolButton*>(Bar().widgetForAction(Button("Tools Drop Down")));
  EXPECT_EQ(button->popupMode(), QToolButton::InstantPopup);
}

TEST_F(ToolbarTest, PopsUpItsOwnMenuByTheRightButton) {
  auto* menu = window.main->findChild<QMenu*>("MHidOption");
  for (QWidget* place : {static_cast<QWidget*>(&Bar()), Bar().widgetForAction(Button("Open"))}) {
    QTest::mouseClick(place, Qt::RightButton, {}, place == &Bar() ? BesideTheButtons() : QPoint(5, 5));
    EXPECT_TRUE(menu->isVisible());
    menu->close();
  }
}

TEST_F(ToolbarTest, IsCustomisedByADoubleClickAndStaysSo) {
  Customise([](QDialog& form) {
    Choose(form, "lstShown", "Help");
    Click(form, "CmdRemove");
    Choose(form, "lstShown", "Open");
    Click(form, "CmdUp");
    form.accept();
  });
  const std::string wanted =
      "Open;New;Save;|Add Items;Remove Items;|Move Items Up;Move Items Down;|Play Items;Preview Playlist;Edit Id3 "
      "Tag;|"
      "Tools Drop Down;||";
  EXPECT_EQ(Shown(), wanted);
  EXPECT_EQ(window.store.GetSetting("QUBLET2021", "PS", "Toolbar1"),
            "Open;New;Save;Separator;Add Items;Remove Items;Separator;Move Items Up;Move Items Down;Separator;"
            "Play Items;Preview Playlist;Edit Id3 Tag;Separator;Tools Drop Down;Separator;Separator;");
  window.Restart();
  EXPECT_EQ(Shown(), wanted);
}

TEST_F(ToolbarTest, TakesAButtonBackBehindTheCurrentOne) {
  Customise([](QDialog& form) {
    Choose(form, "lstShown", "New");
    Click(form, "CmdRemove");
    Choose(form, "lstShown", "Save");
    Choose(form, "lstAvailable", "New");
    Click(form, "CmdAdd");
    form.accept();
  });
  EXPECT_EQ(Shown().substr(0, 15), "Open;Save;New;|");
}

TEST_F(ToolbarTest, GoesBackToItsFirstButtons) {
  Customise([](QDialog& form) {
    for (int i = 0; i < 5; ++i) Click(form, "CmdRemove");
    form.accept();
  });
  EXPECT_NE(Shown(), kAll);
  Customise([](QDialog& form) {
    form.findChild<QDialogButtonBox*>("CmdButtons")->button(QDialogButtonBox::RestoreDefaults)->click();
    form.accept();
  });
  EXPECT_EQ(Shown(), kAll);
}

TEST_F(ToolbarTest, StaysAsItIsWhenTheFormIsCancelled) {
  Customise([](QDialog& form) {
    Click(form, "CmdRemove");
    form.reject();
  });
  EXPECT_EQ(Shown(), kAll);
  EXPECT_EQ(window.store.GetSetting("QUBLET2021", "PS", "Toolbar1"), "");
}

TEST_F(ToolbarTest, IsCustomisedByTheKeyboardToo) {
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.main));
  bool came = false;
  QTimer::singleShot(0, [&] {
    auto* form = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(form, nullptr);
    came = true;
    form->reject();
  });
  QTest::keyClick(&window.List(), Qt::Key_T, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_TRUE(came);
}

TEST_F(ToolbarTest, MovesNothingPastTheEnds) {
  Customise([](QDialog& form) {
    auto* shown = form.findChild<QListWidget*>("lstShown");
    shown->setCurrentRow(0);
    EXPECT_FALSE(form.findChild<QPushButton*>("CmdUp")->isEnabled());
    shown->setCurrentRow(shown->count() - 1);
    EXPECT_FALSE(form.findChild<QPushButton*>("CmdDown")->isEnabled());
    form.reject();
  });
}

}  // namespace
}  // namespace qublet

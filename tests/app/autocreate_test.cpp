#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>

#include "support/main_window.h"
#include "support/modal_work.h"

namespace qublet {
namespace {

// The wizard as it is reached from the menus, over songs that lie in two folders.
class AutoCreateTest : public testing::Test {
 protected:
  AutoCreateTest() {
    window.Start();
    std::string list;
    for (const char* name : {"one\\a.mp3", "one\\b.mp3", "two\\c.mp3"})
      list += std::string("c:\\m\\") + name + "\r\n";
    for (const char* name : {"m/one/a.mp3", "m/one/b.mp3", "m/two/c.mp3"}) window.drives.Write(name, kNoise);
    window.drives.Write("list.m3u", list);
  }
  void OpenList() {
    window.dialogs.open_names.push_back("c:\\list.m3u");
    window.Run("MFileOpen");
  }

  // Has `look` work in the window that the action opens; what it leaves open is closed.
  void Open(QAction& action, const std::function<void(QWidget& form)>& look) {
    EXPECT_TRUE(WorkInModal([&] { action.trigger(); },
                            [&](QWidget& form) {
                              EXPECT_EQ(form.objectName().toStdString(), "AutoCreateWizard");
                              look(form);
                            }));
  }
  void Open(const std::function<void(QWidget& form)>& look) { Open(*window.Action("MToolsM3UWiz"), look); }
  static void Click(const QWidget& form, const char* name, int times = 1) {
    for (int i = 0; i < times; ++i)
      QTest::mouseClick(form.findChild<QPushButton*>(QString::fromUtf8(name)), Qt::LeftButton);
  }
  static std::string LastLine(const QWidget& form) {
    const auto& report = *form.findChild<QTreeWidget*>(QStringLiteral("lstReport"));
    return report.topLevelItem(report.topLevelItemCount() - 1)->text(0).toStdString();
  }

  MainWindow window;
};

TEST_F(AutoCreateTest, TheEntryOpensTheWizardThatWritesAndTakesBack) {
  OpenList();
  Open([&](QWidget& form) {
    Click(form, "CmdNext", 4);
    EXPECT_EQ(LastLine(form), "0 Files could not be created");
    EXPECT_EQ(window.drives.Read("m/one/one-m.m3u"), "a.mp3\r\nb.mp3\r\n");
    EXPECT_EQ(window.drives.Read("m/two/two-m.m3u"), "c.mp3\r\n");
    window.dialogs.answers = {MessageAnswer::kYes};
    Click(form, "cmdUndo");
    EXPECT_EQ(LastLine(form), "0 Files could not be deleted [in use, missing?]");
  });
  EXPECT_EQ(window.drives.Read("m/one/one-m.m3u"), "");
  EXPECT_EQ(window.Names(), "a.mp3 b.mp3 c.mp3");
  EXPECT_FALSE(window.document->PlaylistChanged);
}

TEST_F(AutoCreateTest, TheToolbarOpensItToo) {
  OpenList();
  const auto actions = window.main->findChild<QMenu*>(QStringLiteral("Toolbar1 Menu"))->actions();
  const auto entry = std::find_if(actions.begin(), actions.end(), [](const QAction* action) {
    return action->text() == QStringLiteral("Autocreate Playlists Wizard...");
  });
  ASSERT_NE(entry, actions.end());
  Open(**entry, [](QWidget&) {});
}

TEST_F(AutoCreateTest, AnEmptyListIsToldInstead) {
  window.Run("MToolsM3UWiz");
  ASSERT_EQ(window.dialogs.messages.size(), 1U);
  EXPECT_TRUE(window.dialogs.messages.front().text.starts_with("The function cannot be performed"));
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(AutoCreateTest, EachOpeningBeginsAnew) {
  OpenList();
  Open([](QWidget& form) { Click(form, "CmdNext", 4); });
  Open([](QWidget& form) {
    EXPECT_FALSE(form.findChild<QPushButton*>(QStringLiteral("CmdBack"))->isEnabled());
    EXPECT_FALSE(form.findChild<QPushButton*>(QStringLiteral("cmdUndo"))->isEnabled());
    EXPECT_EQ(form.findChild<QTreeWidget*>(QStringLiteral("lstReport"))->topLevelItemCount(), 0);
  });
}

TEST_F(AutoCreateTest, WhatItWroteCanBeOpened) {
  OpenList();
  Open([](QWidget& form) { Click(form, "CmdNext", 4); });
  window.dialogs.open_names.push_back("c:\\m\\one\\one-m.m3u");
  window.Run("MFileOpen");
  EXPECT_EQ(window.Names(), "a.mp3 b.mp3");
  EXPECT_EQ(window.Rows().At(1).FullPath(), "c:\\m\\one\\a.mp3");
}

}  // namespace
}  // namespace qublet

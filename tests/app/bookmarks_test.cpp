#include <gtest/gtest.h>

#include <QPushButton>
#include <QTreeWidget>

#include "support/main_window.h"
#include "support/modal_work.h"

namespace qublet {
namespace {

// The windows of bookmarks, and the player's bookmark file, as they are reached from the menus.
class BookmarksTest : public testing::Test {
 protected:
  BookmarksTest() {
    for (const char* name : {"m/a.mp3", "m/b.mp3", "m/c.mp3"}) window.drives.Write(name, kNoise);
    window.drives.Write("list.m3u", "c:\\m\\a.mp3\r\nc:\\m\\b.mp3\r\nc:\\m\\c.mp3\r\n");
    window.Start();
  }

  void OpenList() {
    window.dialogs.open_names.push_back("c:\\list.m3u");
    window.Run("MFileOpen");
  }
  void WriteCategory(const char* name, const char* content) {
    window.drives.Write(std::string("program/Bookmarks/") + name + ".bm", content);
  }
  std::string ReadCategory(const char* name) {
    return window.drives.Read(std::string("program/Bookmarks/") + name + ".bm");
  }

  static QTreeWidget& List(const QWidget& form) {
    return *form.findChild<QTreeWidget*>(QStringLiteral("lstCategory"));
  }
  static bool Lists(const QWidget& form, const QStringList& names) {
    return QTest::qWaitFor([&] {
      QStringList shown;
      for (int row = 0; row < List(form).topLevelItemCount(); ++row) shown << List(form).topLevelItem(row)->text(0);
      return shown == names;
    });
  }
  static void Click(const QWidget& form, const char* name) {
    QTest::mouseClick(form.findChild<QPushButton*>(QString::fromUtf8(name)), Qt::LeftButton);
  }
  void ComeForward(QWidget& form) {
    form.raise();
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    QTest::qWait(100);
  }

  // Has `look` work in the modal window; what it leaves open is closed.
  void Add(const std::function<void(QWidget& form)>& look) {
    EXPECT_TRUE(WorkInModal([&] { window.Run("MToolsBookmarkAdd"); },
                            [&](QWidget& form) {
                              EXPECT_TRUE(QTest::qWaitFor([&] { return List(form).topLevelItemCount() > 0; }));
                              look(form);
                            }));
  }
  // The window that is open beside the main one, nullptr when there is none.
  QWidget* Import() {
    for (QWidget* form : QApplication::topLevelWidgets()) {
      if (form->objectName() == u"BookmarksWizard" && form->isVisible() && !form->isModal()) return form;
    }
    return nullptr;
  }
  QWidget& OpenImport(const QStringList& categories) {
    window.Run("MToolsBookmarkImport");
    QWidget* form = Import();
    if (form == nullptr) throw std::runtime_error("no window");
    EXPECT_TRUE(QTest::qWaitForWindowActive(form));
    EXPECT_TRUE(Lists(*form, categories));
    return *form;
  }

  MainWindow window;
};

TEST_F(BookmarksTest, TheEntryKeepsTheSelectedItems) {
  OpenList();
  window.Run("MEditSelAll");
  Add([&](QWidget& form) {
    EXPECT_EQ(form.objectName().toStdString(), "BookmarksWizard");
    EXPECT_TRUE(form.isModal());
    Click(form, "CmdNext");
    EXPECT_FALSE(form.isVisible());
  });
  EXPECT_EQ(ReadCategory("Default"), "c:\\m\\a.mp3\r\nc:\\m\\b.mp3\r\nc:\\m\\c.mp3\r\n");
  EXPECT_FALSE(window.document->PlaylistChanged);
  EXPECT_EQ(window.Selected(), "xxx");
}

TEST_F(BookmarksTest, AnEmptyListIsTold) {
  window.program->commands.Run("MToolsBookmarkAdd");
  ASSERT_EQ(window.dialogs.messages.size(), 1U);
  EXPECT_TRUE(window.dialogs.messages[0].text.starts_with("The function cannot be performed because there are no"));
  EXPECT_FALSE(std::filesystem::exists(window.drives.C() / "program/Bookmarks"));
}

TEST_F(BookmarksTest, WithoutASelectionThereIsNothingToKeep) {
  OpenList();
  window.Run("MEditSelNone");
  EXPECT_FALSE(window.Action("MToolsBookmarkAdd")->isEnabled());
  EXPECT_TRUE(window.Action("MToolsBookmarkImport")->isEnabled());
  window.program->commands.Run("MToolsBookmarkAdd");
  ASSERT_EQ(window.dialogs.messages.size(), 1U);
  EXPECT_EQ(window.dialogs.messages[0].text, "Please select the items you wish to add as bookmarks.");
}

TEST_F(BookmarksTest, TheOtherEntryImportsBesideTheMainWindow) {
  WriteCategory("Rock", "c:\\m\\c.mp3\r\n");
  OpenList();
  QWidget& form = OpenImport({"Default", "Rock"});
  EXPECT_FALSE(form.isModal());
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  QTest::keyClick(&List(form), Qt::Key_End);
  Click(form, "CmdNext");
  EXPECT_EQ(window.Names(), "a.mp3 b.mp3 c.mp3 c.mp3");
  EXPECT_EQ(window.Selected(), "---x");
  EXPECT_EQ(window.Panel(1), "Track: 4/4");
  EXPECT_TRUE(window.document->PlaylistChanged);
  EXPECT_TRUE(form.isVisible());

  ComeForward(*window.main);
  QTest::keyClick(&window.List(), Qt::Key_Home);
  EXPECT_EQ(window.Selected(), "x---") << "the main window works meanwhile";
  window.Run("MEditRemove");
  EXPECT_EQ(window.Names(), "b.mp3 c.mp3 c.mp3");
}

TEST_F(BookmarksTest, NewCategoriesHoldWhatIsSelectedInTheMainWindowByThen) {
  OpenList();
  window.Run("MEditSelAll");
  QWidget& form = OpenImport({"Default"});
  ComeForward(*window.main);
  QTest::keyClick(&window.List(), Qt::Key_End);
  WriteCategory("Aside", "");
  ComeForward(form);
  EXPECT_TRUE(Lists(form, {"Aside", "Default"})) << "read anew";
  window.dialogs.texts.emplace_back("New");
  QTest::keyClick(&List(form), Qt::Key_Insert);
  EXPECT_EQ(ReadCategory("New"), "c:\\m\\c.mp3\r\n");
}

TEST_F(BookmarksTest, TheOpenWindowComesToTheFrontInsteadOfASecondOne) {
  QWidget& form = OpenImport({"Default"});
  form.move(form.pos() + QPoint(30, 20));
  const QPoint place = form.pos();
  ComeForward(*window.main);
  EXPECT_EQ(&OpenImport({"Default"}), &form);
  EXPECT_EQ(form.pos(), place);
  QTest::keyClick(&form, Qt::Key_Escape);
  EXPECT_EQ(Import(), nullptr);
  OpenImport({"Default"});
}

TEST_F(BookmarksTest, BothWindowsWorkWhileBothAreOpen) {
  OpenList();
  window.Run("MEditSelAll");
  QWidget& import = OpenImport({"Default"});
  ComeForward(*window.main);
  window.dialogs.texts.emplace_back("Best");
  Add([&](QWidget& form) {
    EXPECT_NE(&form, &import);
    EXPECT_TRUE(import.isVisible());
    Click(form, "cmdAddCategory");
    Click(form, "CmdNext");
  });
  EXPECT_EQ(ReadCategory("Best").size(), 2U * 36);
  ComeForward(import);
  EXPECT_TRUE(Lists(import, {"Best", "Default"}));
  window.Run("MFileNew");
  Click(import, "CmdNext");
  EXPECT_EQ(window.Names(), "a.mp3 b.mp3 c.mp3 a.mp3 b.mp3 c.mp3");
}

TEST_F(BookmarksTest, NothingIsDoneWhileABatchRuns) {
  WriteCategory("Default", "c:\\m\\a.mp3\r\n");
  QWidget& form = OpenImport({"Default"});
  window.feedback.BeginWait();
  for (const char* name : {"CmdNext", "cmdAddCategory", "cmdDelCategory", "CmdClose"}) Click(form, name);
  window.feedback.EndWait();
  EXPECT_EQ(window.Rows().Count(), 0);
  EXPECT_TRUE(window.dialogs.text_prompts.empty());
  EXPECT_TRUE(window.dialogs.messages.empty());
  EXPECT_TRUE(form.isVisible());
}

TEST_F(BookmarksTest, TheProgramEndsWithTheWindowOpen) {
  OpenImport({"Default"});
  window.main->close();
  window.Restart();
  EXPECT_EQ(Import(), nullptr);
}

TEST_F(BookmarksTest, ThePlayersFileIsReadReplacedAndRemembered) {
  window.drives.Write("player/my.bm", "c:\\m\\c.mp3\r\nC\r\n");
  window.dialogs.open_names.push_back("c:\\player\\my.bm");
  window.Run("MToolsLoadWinamp");
  EXPECT_EQ(window.Names(), "c.mp3");
  EXPECT_EQ(window.Panel(1), "Track: 1/1");
  EXPECT_EQ(window.dialogs.messages.size(), 1U);
  window.Add("c:\\m\\a.mp3");
  window.Run("MToolsSaveWinamp");
  EXPECT_EQ(window.drives.Read("player/my.bm"), "c:\\m\\c.mp3\r\nC\r\nc:\\m\\a.mp3\r\nA\r\n");
  EXPECT_EQ(window.drives.Read("player/my.bm.bak"), "c:\\m\\c.mp3\r\nC\r\n");
  window.dialogs.answers = {MessageAnswer::kNo};
  window.main->close();
  window.dialogs.messages.clear();
  window.Restart();
  window.Run("MFileNew");
  window.Run("MToolsLoadWinamp");
  EXPECT_TRUE(window.dialogs.messages.empty()) << "it is located once";
  EXPECT_EQ(window.Names(), "c.mp3 a.mp3");
}

TEST_F(BookmarksTest, AnotherFileOfThePlayerIsChosen) {
  window.drives.Write("other.bm", "");
  window.dialogs.open_names.push_back("c:\\other.bm");
  window.Run("MToolsLocWinamp");
  EXPECT_EQ(window.document->WinampBookmarkFile, "c:\\other.bm");
  EXPECT_TRUE(window.dialogs.messages.empty());
}

TEST_F(BookmarksTest, AnEmptyListReplacesNothing) {
  window.drives.Write("my.bm", "old");
  window.document->WinampBookmarkFile = "c:\\my.bm";
  window.Run("MToolsSaveWinamp");
  EXPECT_EQ(window.dialogs.messages.size(), 1U);
  EXPECT_EQ(window.drives.Read("my.bm"), "old");
}

}  // namespace
}  // namespace qublet

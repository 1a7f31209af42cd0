#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

#include "support/main_window.h"
#include "support/modal_work.h"

namespace qublet {
namespace {

// The search window as it is reached from the menus, over songs that lie in two folders.
class SearchTest : public testing::Test {
 protected:
  SearchTest() {
    window.Start();
    std::string list;
    for (const char* name : {"one\\a.mp3", "one\\b.mp3", "two\\A2.mp3"}) list += std::string("c:\\") + name + "\r\n";
    for (const char* name : {"one/a.mp3", "one/b.mp3", "two/A2.mp3"}) window.drives.Write(name, kNoise);
    window.drives.Write("list.m3u", list);
  }
  void OpenList() {
    window.dialogs.open_names.push_back("c:\\list.m3u");
    window.Run("MFileOpen");
  }

  // Has `look` work in the window that `open` opens. A user comes from the main window.
  void Look(const std::function<void()>& open, const std::function<void(QWidget& form)>& look) {
    window.main->activateWindow();
    ASSERT_TRUE(ComesForward(*window.main));
    EXPECT_TRUE(WorkInModal(open, look));
  }
  void Open(const std::function<void(QWidget& form)>& look) {
    Look([this] { window.Run("MToolsSearch"); }, look);
  }
  static QComboBox& Box(const QWidget& form) { return *form.findChild<QComboBox*>(QStringLiteral("txtSearch")); }
  static void Search(const QWidget& form, const char* text) {
    QTest::keyClicks(&Box(form), QString::fromUtf8(text));
    QTest::keyClick(&Box(form), Qt::Key_Return);
  }
  static void Click(const QWidget& form, const char* name) {
    QTest::mouseClick(form.findChild<QPushButton*>(QString::fromUtf8(name)), Qt::LeftButton);
  }

  MainWindow window;
};

TEST_F(SearchTest, TheEntryOpensTheWindowThatFinds) {
  OpenList();
  Open([&](QWidget& form) {
    EXPECT_EQ(form.objectName().toStdString(), "frmSearch");
    Search(form, "a");
    EXPECT_EQ(form.windowTitle().toStdString(), "Found: 2 Items.");
    EXPECT_EQ(window.Selected(), "x-x");
    EXPECT_TRUE(window.Action("MEditRemove")->isEnabled());
  });
  EXPECT_EQ(window.Selected(), "x-x");
  EXPECT_FALSE(window.document->PlaylistChanged);
}

TEST_F(SearchTest, TheKeyOpensItToo) {
  OpenList();
  Look([this] { QTest::keyClick(window.main->windowHandle(), Qt::Key_F, Qt::ControlModifier); },
       [](QWidget& form) { EXPECT_EQ(form.objectName().toStdString(), "frmSearch"); });
}

TEST_F(SearchTest, AnEmptyListIsToldInsteadOfSearched) {
  window.Run("MToolsSearch");
  ASSERT_EQ(window.dialogs.messages.size(), 1U);
  EXPECT_TRUE(window.dialogs.messages.front().text.starts_with("The function cannot be performed"));
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(SearchTest, SearchesTheTextsAsTheListShowsThem) {
  OpenList();
  Open([&](QWidget& form) {
    form.findChild<QAction*>(QStringLiteral("MSize"))->trigger();
    Search(form, "3 bytes");
    EXPECT_EQ(form.windowTitle().toStdString(), "Found: 3 Items.");
    Box(form).lineEdit()->selectAll();
    Search(form, "C:\\TWO\\");
    EXPECT_EQ(window.Selected(), "--x");
  });
}

TEST_F(SearchTest, StepsShowTheRowAndWhatCanBeDoneWithIt) {
  OpenList();
  Open([&](QWidget& form) {
    QTest::keyClicks(&Box(form), QStringLiteral("a"));
    Click(form, "cmdBack");
    EXPECT_EQ(window.Selected(), "--x");
    EXPECT_EQ(window.List().currentIndex().row(), 2);
    EXPECT_FALSE(window.Action("MEditMoveDown")->isEnabled());
    EXPECT_TRUE(window.Action("MEditMoveUp")->isEnabled());
  });
}

TEST_F(SearchTest, ListenPlaysWhatIsSelected) {
  OpenList();
  Open([&](QWidget& form) {
    Search(form, "two");
    Click(form, "cmdPreview");
    EXPECT_TRUE(form.isVisible());
  });
  EXPECT_EQ(window.drives.Read("program/tmp.m3u"), "c:\\two\\A2.mp3\r\n");
  EXPECT_EQ(window.shell.opened.size(), 1U);
}

TEST_F(SearchTest, OnlyHidesWhileItIsKeptAlive) {
  OpenList();
  Open([](QWidget& form) {
    form.findChild<QAction*>(QStringLiteral("Mcasesensitive"))->trigger();
    Search(form, "a");
  });
  Open([](QWidget& form) {
    EXPECT_EQ(Box(form).count(), 1);
    EXPECT_TRUE(form.findChild<QAction*>(QStringLiteral("Mcasesensitive"))->isChecked());
    EXPECT_EQ(form.windowTitle().toStdString(), "Search Playlist...");
  });
}

TEST_F(SearchTest, GoesForGoodWhenItIsNotKeptAlive) {
  OpenList();
  Open([](QWidget& form) {
    form.findChild<QAction*>(QStringLiteral("Mcasesensitive"))->trigger();
    Search(form, "a");
    form.findChild<QAction*>(QStringLiteral("Mkeepalive"))->trigger();
    Click(form, "cmdClose");
  });
  Open([](QWidget& form) {
    EXPECT_EQ(Box(form).count(), 0);
    EXPECT_EQ(Box(form).currentText().toStdString(), "");
    EXPECT_FALSE(form.findChild<QAction*>(QStringLiteral("Mcasesensitive"))->isChecked());
    EXPECT_TRUE(form.findChild<QAction*>(QStringLiteral("Mkeepalive"))->isChecked());
  });
}

TEST_F(SearchTest, SearchesTheListAsItIsWhenItComesUpAgain) {
  OpenList();
  Open([](QWidget& form) { Search(form, "a"); });
  window.Run("MEditRemove");
  Open([&](QWidget& form) {
    QTest::keyClick(&Box(form), Qt::Key_Return);
    EXPECT_EQ(form.windowTitle().toStdString(), "Found: 0 Items.");
  });
  EXPECT_EQ(window.Names(), "b.mp3");
}

}  // namespace
}  // namespace qublet

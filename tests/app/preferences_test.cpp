#include <QFontDialog>
#include <QHeaderView>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolButton>

#include "platform/qt/colours.h"
#include "support/options_test_base.h"

namespace qublet {
namespace {

// Each setting is seen to act where it acts, once it was changed in the preferences.
class PreferencesAct : public OptionsTestBase {
 protected:
  Toolbar& Bar() { return *window.main->findChild<Toolbar*>(QStringLiteral("Toolbar1")); }
  bool MenusShown() { return window.main->menuBar()->actions().front()->isVisible(); }
  QStringList Recent() {
    QStringList shown;
    for (const QAction* entry : window.main->findChild<QMenu*>(QStringLiteral("MFileRec"))->actions()) {
      if (entry->isVisible()) shown << entry->text();
    }
    return shown;
  }
  bool Warns(int panel) {
    return !window.main->findChild<QLabel*>(QStringLiteral("Panel%1Picture").arg(panel))->isHidden();
  }
  void DoubleClickRow(int row) {
    const QPoint place = window.List().visualRect(window.List().model()->index(row - 1, 0)).center();
    QTest::mouseClick(window.List().viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(window.List().viewport(), Qt::LeftButton, Qt::NoModifier, place);
  }
};

TEST_F(PreferencesAct, AreReachedFromTheToolbarsMenuToo) {
  Open(
      [](const OptionsHand& hand, QWidget& form) {
        EXPECT_EQ(form.windowTitle().toStdString(), "Playlist Editor Preferences...");
        EXPECT_EQ(hand.PageCaption(), "General Options");
      },
      "MHidOptionShow");
}

TEST_F(PreferencesAct, OnMenuToolbarAndStatusBar) {
  Click("Elements", "chkShowMenu");
  EXPECT_FALSE(MenusShown());
  Click("Elements", "chkShowMenu");
  EXPECT_TRUE(MenusShown());
  Click("Elements", "chkShowToolbar");
  EXPECT_TRUE(Bar().isHidden());
  EXPECT_FALSE(window.Action("MViewToolbar")->isChecked());
  Click("Elements", "chkShowStatusBar");
  EXPECT_TRUE(window.main->findChild<QStatusBar*>()->isHidden());
  EXPECT_FALSE(window.Action("MViewStatusBar")->isChecked());
}

TEST_F(PreferencesAct, OnMenuAndToolbarNeverBoth) {
  Change("Elements", [&](const OptionsHand& hand) {
    hand.Click("chkShowMenu");
    hand.Click("chkShowToolbar");
  });
  EXPECT_EQ(window.dialogs.messages.size(), 1U);
  EXPECT_TRUE(MenusShown());
  EXPECT_TRUE(Bar().isHidden());
}

TEST_F(PreferencesAct, OnTheToolbarsLookAndEdge) {
  EXPECT_TRUE(Bar().findChild<QToolButton*>()->autoRaise());
  const QImage before = Bar().grab().toImage();
  Change("Elements", [](const OptionsHand& hand) { hand.Click("ToolbarStandard"); });
  EXPECT_NE(Bar().grab().toImage(), before);
  Change("Elements", [](const OptionsHand& hand) {
    hand.Click("ToolbarRaised");
    hand.Click("ToolbarAlignTop");
  });
  EXPECT_FALSE(Bar().findChild<QToolButton*>()->autoRaise());
  EXPECT_EQ(window.main->toolBarArea(&Bar()), Qt::TopToolBarArea);
  Click("Elements", "ToolbarAlignBottom");
  EXPECT_EQ(window.main->toolBarArea(&Bar()), Qt::BottomToolBarArea);
}

TEST_F(PreferencesAct, OnTheColumnsWhichKeepTheirWidths) {
  window.List().setColumnWidth(kSize, 123);
  for (int column = 0; column < 9; ++column) {
    Click("Elements", ("chkColumnVis" + std::to_string(column)).c_str());
    EXPECT_TRUE(window.List().isColumnHidden(column)) << column;
  }
  Click("Elements", "chkColumnVis2");
  EXPECT_FALSE(window.List().isColumnHidden(kSize));
  EXPECT_EQ(window.List().columnWidth(kSize), 123);
}

TEST_F(PreferencesAct, OnTheListsLook) {
  Open([&](const OptionsHand& hand, QWidget&) {
    hand.Turn("Playlist");
    hand.Click("schClear");
    EXPECT_NE(window.List().palette().color(QPalette::Base), QColor(0x00, 0x4B, 0x97)) << "not before Apply";
    hand.Click("chkShowGrid");
    hand.Click("chkHotTracking");
    const QImage before = window.List().viewport()->grab().toImage();
    hand.Click("cmdApply");
    EXPECT_EQ(window.List().palette().color(QPalette::Base), QColor(0x00, 0x4B, 0x97));
    EXPECT_EQ(window.List().palette().color(QPalette::Text), QColor(0x6A, 0xCF, 0xFF));
    EXPECT_NE(window.List().viewport()->grab().toImage(), before);
    const QImage hot = PictureUnderPointer(window.List());
    hand.Click("chkHotTracking");
    hand.Click("cmdApply");
    EXPECT_NE(PictureUnderPointer(window.List()), hot);
    hand.Click("schOldSkool");
    hand.Click("cmdApply");
    EXPECT_EQ(window.List().font().family().toStdString(), "Verdana");
    EXPECT_EQ(window.List().font().pointSizeF(), 7) << "a fraction is rounded";
  });
}

TEST_F(PreferencesAct, OnTheListsFont) {
  Open([&](const OptionsHand& hand, QWidget& form) {
    hand.Turn("Playlist");
    QTimer::singleShot(0, &form, [] {
      auto* dialog = qobject_cast<QFontDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      QFont font(QStringLiteral("DejaVu Sans"), 14, QFont::Bold, true);
      font.setStrikeOut(true);
      font.setUnderline(true);
      dialog->setCurrentFont(font);
      dialog->accept();
    });
    hand.Click("FontChange");
    hand.Click("cmdApply");
  });
  const QFont& font = window.List().font();
  EXPECT_EQ(font.family().toStdString(), "DejaVu Sans");
  EXPECT_EQ(font.pointSizeF(), 14);
  EXPECT_TRUE(font.bold() && font.italic() && font.strikeOut() && font.underline());
}

TEST_F(PreferencesAct, OnWhatTheToolbarSaves) {
  window.Run("MFileNew");
  window.Add("c:\\one");
  window.dialogs.save_names = {"c:\\one\\relative.m3u", "c:\\one\\absolute.m3u"};
  window.Action("Toolbar1 Save")->trigger();
  EXPECT_EQ(window.drives.Read("one/relative.m3u"), "a.mp3\r\nb.mp3\r\n");
  Click("Interface", "optSaveAbs");
  window.Run("MFileNew");
  window.Add("c:\\one\\a.mp3");
  window.Action("Toolbar1 Save")->trigger();
  EXPECT_EQ(window.drives.Read("one/absolute.m3u"), "c:\\one\\a.mp3\r\n");
}

TEST_F(PreferencesAct, OnHowOftenAShuffleGoesThroughTheRows) {
  window.Run("MEditSelAll");
  window.random.drawn = 0;
  window.Run("MEditSelShuffle");
  const int once = window.random.drawn;
  Change("Interface",
         [](const OptionsHand& hand) { QTest::keyClick(&hand.Find<QSlider>("slideShuffleIntensity"), Qt::Key_End); });
  EXPECT_EQ(window.settings->SHUFFLEINT, 10);
  window.random.drawn = 0;
  window.Run("MEditSelShuffle");
  EXPECT_GT(window.random.drawn, 4 * once);
}

TEST_F(PreferencesAct, OnWhereAnImportStarts) {
  window.dialogs.folders = {"c:\\two"};
  Click("Interface", "Command1");
  EXPECT_EQ(window.dialogs.browse_titles.back(), "Select Folder...");
  window.dialogs.open_requests.clear();
  window.Run("MFileImport");
  ASSERT_EQ(window.dialogs.open_requests.size(), 1U);
  EXPECT_EQ(window.dialogs.open_requests[0].file_name, "c:\\two\\*.m3u");
}

TEST_F(PreferencesAct, OnWhatADoubleClickPlays) {
  window.Run("MEditSelNone");
  DoubleClickRow(2);
  EXPECT_EQ(window.drives.Read("program/tmp.m3u"), "c:\\one\\a.mp3\r\n");
  Click("Interface", "optPlayFrom");
  DoubleClickRow(2);
  EXPECT_EQ(window.drives.Read("program/tmp.m3u"), "c:\\one\\a.mp3\r\nc:\\two\\c.mp3\r\n");
}

TEST_F(PreferencesAct, OnTheNameThatASaveProposes) {
  Change("Interface", [](const OptionsHand& hand) { hand.Type("txtSaveName", "mine"); });
  window.Run("MFileNew");
  window.Add("c:\\one");
  window.dialogs.save_requests.clear();
  window.Run("MFileSaveAs");
  ASSERT_EQ(window.dialogs.save_requests.size(), 1U);
  EXPECT_TRUE(window.dialogs.save_requests[0].file_name.ends_with("mine.m3u"))
      << window.dialogs.save_requests[0].file_name;
}

TEST_F(PreferencesAct, OnWhetherASortAsks) {
  window.dialogs.answers = {MessageAnswer::kNo};
  window.Run("MViewSortFilename");
  EXPECT_EQ(window.dialogs.messages.size(), 1U);
  EXPECT_EQ(window.Names(), "b.mp3 a.mp3 c.mp3");
  Click("Prompting", "chkExtSortNag");
  window.Run("MViewSortFilename");
  EXPECT_EQ(window.dialogs.messages.size(), 1U);
  EXPECT_EQ(window.Names(), "a.mp3 b.mp3 c.mp3");
}

TEST_F(PreferencesAct, OnTheWarningsAtOnce) {
  EXPECT_FALSE(Warns(1) || Warns(2) || Warns(3));
  Change("Prompting", [](const OptionsHand& hand) {
    hand.Click("chkPlaylistCount");
    hand.Type("txtPlaylistCount", "3");
  });
  EXPECT_TRUE(Warns(1));
  EXPECT_FALSE(Warns(2) || Warns(3));
  Change("Prompting", [](const OptionsHand& hand) {
    hand.Type("txtPlaylistCount", "4");
    hand.Click("chkPlaylistTime");
    hand.Type("txtPlaylistTime", "0");
    hand.Click("chkPlaylistSize");
    hand.Type("txtPlaylistSize", "0");
  });
  EXPECT_FALSE(Warns(1));
  EXPECT_TRUE(Warns(2) && Warns(3));
}

TEST_F(PreferencesAct, OnTheRecentFilesCaptionsAtOnceAndTheirNumberWithTheNext) {
  window.drives.Write("sub/second.m3u", "c:\\one\\a.mp3\r\n");
  window.dialogs.open_names = {"c:\\sub\\second.m3u"};
  window.Run("MFileOpen");
  ASSERT_EQ(Recent().size(), 2);
  EXPECT_FALSE(Recent()[0].contains(QStringLiteral("c:\\")));
  Change("General", [](const OptionsHand& hand) {
    hand.Click("chkRecentFullPath");
    QTest::keyClick(&hand.Find<QComboBox>("cmbRecentCount"), Qt::Key_Home);
  });
  ASSERT_EQ(Recent().size(), 2);
  EXPECT_TRUE(Recent()[0].contains(QStringLiteral("c:\\sub\\second.m3u")));
  window.drives.Write("third.m3u", "c:\\one\\a.mp3\r\n");
  window.dialogs.open_names = {"c:\\third.m3u"};
  window.Run("MFileOpen");
  ASSERT_EQ(Recent().size(), 1);
  EXPECT_TRUE(Recent()[0].contains(QStringLiteral("third.m3u")));
}

TEST_F(PreferencesAct, OnRecentFilesThatAreGoneAtTheNextStart) {
  Click("General", "chkRecentPurge");
  std::filesystem::remove(window.drives.C() / "list.m3u");
  EXPECT_EQ(Recent().size(), 1);
  Restart();
  EXPECT_EQ(Recent().size(), 0);
}

TEST_F(PreferencesAct, OnWhetherTheLastListComesBack) {
  Restart();
  EXPECT_EQ(window.Rows().Count(), 3);
  Click("Startup", "chkPlaylistRestore");
  Restart();
  EXPECT_EQ(window.Rows().Count(), 0);
}

TEST_F(PreferencesAct, OnWhatTheSystemOpensAtLogon) {
  Click("Startup", "chkPlayPlaylist");
  EXPECT_TRUE(window.startup.paths.empty()) << "not before the end";
  Restart();
  EXPECT_EQ(window.startup.paths["last"], "c:\\program\\last.m3u");
  Click("Startup", "chkPlayPlaylist");
  Restart();
  EXPECT_TRUE(window.startup.paths.empty());
}

TEST_F(PreferencesAct, OnNothingElse) {
  Change("General", [](const OptionsHand& hand) {
    hand.Click("chkUpdate");
    hand.Turn("Prompting");
    hand.Click("chkMissWarn");
  });
  std::filesystem::remove(window.drives.C() / "two/c.mp3");
  OpenList();
  EXPECT_TRUE(window.dialogs.messages.empty());
}

}  // namespace
}  // namespace qublet

#include <gtest/gtest.h>

#include <QMenuBar>

#include "platform/qt/key_names.h"
#include "support/main_window.h"

namespace qublet {
namespace {

// The menus as text: an entry a line, indented by depth, the name behind the caption, "-" for a separator.
std::string TreeOf(const QList<QAction*>& entries, int depth) {
  std::string text;
  for (const QAction* entry : entries) {
    const std::string name =
        entry->menu() != nullptr ? entry->menu()->objectName().toStdString() : entry->objectName().toStdString();
    text += std::string(static_cast<std::size_t>(depth), ' ') +
            (entry->isSeparator() ? "-" : entry->text().toStdString()) + (name.empty() ? "" : "|" + name) + "\n";
    if (entry->menu() != nullptr) text += TreeOf(entry->menu()->actions(), depth + 1);
  }
  return text;
}

class MenuTest : public testing::Test {
 protected:
  MenuTest() { window.Start(); }
  QMenu* Menu(const char* name) { return window.main->findChild<QMenu*>(QString::fromUtf8(name)); }
  std::string Tree(const char* menu) { return TreeOf(Menu(menu)->actions(), 0); }

  MainWindow window;
};

TEST_F(MenuTest, CallsEnterAsItIsCalledOnWindows) {
  WindowsKeyNames names;
  QCoreApplication::installTranslator(&names);
  const QString shown = window.Action("MEditFileInfo")->shortcut().toString(QKeySequence::NativeText);
  const QString other = window.Action("MEditSelAll")->shortcut().toString(QKeySequence::NativeText);
  QCoreApplication::removeTranslator(&names);
  EXPECT_EQ(shown.toStdString(), "Alt+Enter");
  EXPECT_EQ(other.toStdString(), "Ctrl+A");
}

TEST_F(MenuTest, HasFiveMenusInTheBar) {
  std::string captions;
  for (const QAction* menu : window.main->menuBar()->actions()) captions += menu->text().toStdString() + " ";
  EXPECT_EQ(captions, "&File &Edit &View &Tools &Help ");
}

TEST_F(MenuTest, NamesTheEntriesOfFile) {
  std::string recent;
  for (int i = 1; i <= 20; ++i) recent += " |MFileRecent" + std::to_string(i) + "\n";
  EXPECT_EQ(Tree("MFile"),
            "&New|MFileNew\n&Open|MFileOpen\n&Import..|MFileImport\n-\n&Save|MFileSave\nSave &As|MFileSaveAs\n-\n"
            "Save to Relative Folder..|MFileSaveRel\n-\n&Recent Files..|MFileRec\n" +
                recent + "-\nE&xit|MFileExit\n");
}

TEST_F(MenuTest, NamesTheEntriesOfEdit) {
  EXPECT_EQ(Tree("MEdit"),
            "Play..|MEditPlay\n &Play Selected|MEditPlaySel\n Play Folder|MEditPlayFol\n Play From|MEditPlayLoc\n"
            " Play List|MEditPlayList\n-\n&Add Item|MEditAddDir\n&Remove Item|MEditRemove\n-\nMove &Up|MEditMoveUp\n"
            "Move &Down|MEditMoveDown\n-\n&Selection..|MEditSel\n Select &All|MEditSelAll\n"
            " Select &None|MEditSelNone\n Select in Folder|MEditSelFol\n -\n Move to &Top|MEditSelTop\n"
            " Move to &Bottom|MEditSelBottom\n -\n In&vert Selection|MEditSelInv\n Alternate Selection|MEditSelAlt\n"
            " &Random Selection|MEditSelRnd\n Shuffle Selection|MEditSelShuffle\n -\n Open &Folder..|MEditSelLoc\n"
            " Im&port Folder|MEditSelImpFol\n -\n Add &Check Mark...|MEditSeMark\n  Blue..|MEditSeMarkBlue\n"
            "  Green...|MEditSeMarkGreen\n  Red...|MEditSeMarkRed\n Remove Check Mark...|MEditSeUnMark\n"
            " Select Check Marked...|MEditSelectMark\n-\nEdit ID3 &Tag..|MEditId3\n-\n&Properties|MEditFileInfo\n"
            "-|Mrelocs\nReplace/Relocate...|Mreloc\n");
}

TEST_F(MenuTest, NamesTheEntriesOfView) {
  EXPECT_EQ(Tree("MView"),
            "&Toolbar|MViewToolbar\n&StatusBar|MViewStatusBar\n-\nSort|MViewSort\n by &Filename|MViewSortFilename\n"
            " by &Length|MViewSortTime\n by &Size|MViewSortSize\n by Fol&der|MViewSortFolder\n by &ID|MViewSortID\n"
            " by La&yer|MViewSortLayer\n by &Bitrate|MViewSortBitrate\n by S&amplerate|MViewSortSamplerate\n"
            " by &Mode|MViewSortMode\n by &Original Order|MViewSortOrig\n-\nPlaylist Properties...|MViewDetails\n-\n"
            "Refresh|MViewRefresh\n");
}

TEST_F(MenuTest, NamesTheEntriesOfTools) {
  std::string plugins;
  for (int i = 1; i <= 9; ++i) plugins += " None Loaded...|plug" + std::to_string(i) + "\n";
  EXPECT_EQ(
      Tree("MTools"),
      "&Search Playlist...|MToolsSearch\n&Purge Playlist Entries...|MToolsFilter\n"
      "&Rectify MP3 Filenames...|MToolsRename\n-\n&Wizards...|MToolsWizards\n &Generate Report...|MToolsReport\n"
      " &Autocreate M3U's...|MToolsM3UWiz\n &Create MP3 CD-ROM...|MToolsMP3CDWiz\n-\n&Plugins|MToolsPlugins\n" +
          plugins +
          "-\nBookmarks|MToolsBookmark\n Add Selected Items...|MToolsBookmarkAdd\n -\n"
          " Import/Edit Category|MToolsBookmarkImport\n-|splug\nW&inAmp...|MToolsWinamp\n"
          " Import WinAmp Bookmark File|MToolsLoadWinamp\n Save As WinAmp Bookmark File|MToolsSaveWinamp\n"
          " Use different Bookmark File|MToolsLocWinamp\n -\n"
          " Shutdown PC when WinAmp stops playing...|MToolsWinampShutDown\n-|s101\n"
          "Shortcuts...|MToolsShortCut\n Find Files...|MToolsShortCutFind\n Explorer...|MToolsShortCutExplore\n"
          " Volume Control...|MToolsShortCutVolume\n-\nPreferences...|MToolOptions\n");
}

TEST_F(MenuTest, NamesTheEntriesOfHelp) {
  EXPECT_EQ(
      Tree("MHelp"),
      "&Help|MHelpHelp\nQuick Guide...|MHelpQuickguide\nRead Me File...|MHelpReadme\n-\n"
      "&Tip of the Day|MHelpTip\n-\nVisit Velmora &Website|MHelpWebsite\n-\nCheck for an Update...|MHelpUpdate\n"
      "-\n&About|MHelpAbout\n");
}

TEST_F(MenuTest, KeepsTheToolbarsOwnMenuOutOfTheBar) {
  EXPECT_EQ(Menu("MHidOption")->title().toStdString(), "GUI Options");
  EXPECT_EQ(Tree("MHidOption"), "Preferences...|MHidOptionShow\n");
}

TEST_F(MenuTest, ShowsOnePluginEntryThatSaysThereAreNone) {
  std::string shown;
  for (const QAction* entry : Menu("MToolsPlugins")->actions()) {
    if (entry->isVisible())
      shown += entry->objectName().toStdString() + (entry->isEnabled() ? " enabled" : " disabled");
  }
  EXPECT_EQ(shown, "plug9 disabled");
}

TEST_F(MenuTest, HasAToolBehindEveryEntry) {
  for (std::size_t i = 0; i < kMenu.size(); ++i) {
    const CommandName command = CommandName::At(i);
    const bool leads_on = command.Row().IsSeparator() || command.Row().IsSubmenu();
    EXPECT_NE(window.program->commands.IsBound(command), leads_on) << command.Row().name;
  }
}

TEST_F(MenuTest, SaysOfEveryEntryWhatItDoes) {
  for (const QAction* action : window.main->findChildren<QAction*>()) {
    const bool is_entry = CommandName::Find(action->objectName().toStdString()).has_value();
    if (is_entry && action->menu() == nullptr && !action->isSeparator()) {
      EXPECT_FALSE(action->statusTip().isEmpty()) << action->objectName().toStdString();
    }
  }
}

TEST_F(MenuTest, GivesNoKeyTwice) {
  QStringList keys;
  for (const MenuRow& command : kMenu) {
    if (*command.shortcut != '\0') keys << QString::fromUtf8(command.shortcut);
  }
  const qsizetype all = keys.size();
  EXPECT_EQ(keys.removeDuplicates(), 0);
  EXPECT_GT(all, 15);
}

TEST_F(MenuTest, TakesItsKeysAlsoWhileTheMenusAreHidden) {
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.main));
  window.drives.Write("a.mp3", kNoise);
  window.Add("c:\\a.mp3");
  window.Run("MEditSelNone");
  for (QAction* menu : window.main->menuBar()->actions()) menu->setVisible(false);
  QTest::keyClick(&window.List(), Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(window.Selected(), "x");
}

TEST_F(MenuTest, PutsPicturesBesideTheEntriesThatHaveOne) {
  for (const char* name : {"MFileNew", "MFileOpen", "MFileSave", "MFileSaveAs", "MFileSaveRel", "MEditAddDir",
                           "MEditRemove", "MEditMoveUp", "MEditMoveDown", "MEditId3", "MViewDetails", "MToolsSearch",
                           "MToolsFilter", "MToolsRename", "MHelpHelp", "MHelpQuickguide"})
    EXPECT_FALSE(window.Action(name)->icon().isNull()) << name;
  EXPECT_FALSE(Menu("MEditPlay")->icon().isNull());
}

TEST_F(MenuTest, ShowsThePropertiesOfTheFocusedRow) {
  window.drives.Write("one/a.mp3", kNoise);
  window.Add("c:\\one\\a.mp3");
  EXPECT_TRUE(window.Action("MEditFileInfo")->isEnabled());
  window.Run("MEditFileInfo");
  EXPECT_EQ(window.shell.properties, std::vector<std::string>{"c:\\one\\a.mp3"});
}

TEST_F(MenuTest, SearchesAndExploresTheFolderOfTheSelection) {
  window.drives.Write("one/a.mp3", kNoise);
  window.Add("c:\\one\\a.mp3");
  window.Run("MToolsShortCutFind");
  window.Run("MToolsShortCutExplore");
  EXPECT_EQ(window.shell.searched, std::vector<std::string>{"c:\\one"});
  EXPECT_EQ(window.shell.explored, std::vector<std::string>{"c:\\one"});
}

TEST_F(MenuTest, SearchesTheCurrentFolderWithoutASelection) {
  window.files->SetCurrentFolder("c:\\program");
  window.Run("MToolsShortCutFind");
  EXPECT_EQ(window.shell.searched, std::vector<std::string>{"c:\\program"});
}

TEST_F(MenuTest, OpensTheVolumeControlOrSaysThatThereIsNone) {
  window.Run("MToolsShortCutVolume");
  EXPECT_EQ(window.shell.volume_controls, 1);
  EXPECT_TRUE(window.dialogs.messages.empty());
  window.shell.has_volume_control = false;
  window.Run("MToolsShortCutVolume");
  EXPECT_EQ(window.dialogs.messages.size(), 1U);
}

}  // namespace
}  // namespace qublet

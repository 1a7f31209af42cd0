#include <gtest/gtest.h>

#include <QPushButton>
#include <QTabWidget>
#include <QTimer>

#include "playlist/ui/PlaylistStats.h"
#include "support/main_window.h"

namespace qublet {
namespace {

class PlayTest : public testing::Test {
 protected:
  PlayTest() {
    for (const char* name : {"one/a.mp3", "one/b.mp3", "two/c.mp3"}) window.drives.Write(name, kNoise);
  }

  void StartWithRows() {
    window.Start();
    window.Add("c:\\one");
    window.Add("c:\\two");
    window.Run("MEditSelNone");
  }

  // What was handed over last, a bar behind each; then nothing is.
  std::string Played() {
    const std::string text = window.shell.opened.empty() ? "" : window.drives.Read("program/tmp.m3u");
    window.shell.opened.clear();
    return QString::fromStdString(text).replace("\r\n", "|").toStdString();
  }

  QPoint CenterOf(int row) { return window.List().visualRect(window.List().model()->index(row - 1, 0)).center(); }
  void DoubleClick(QPoint point) {
    QTest::mouseClick(window.List().viewport(), Qt::LeftButton, Qt::NoModifier, point);
    QTest::mouseDClick(window.List().viewport(), Qt::LeftButton, Qt::NoModifier, point);
  }

  MainWindow window;
};

TEST_F(PlayTest, HasItsCaptionsLetterForLetter) {
  EXPECT_EQ(window.main->findChild<QMenu*>("MEditPlay")->title().toStdString(), "Play..");
  EXPECT_EQ(window.main->findChild<QMenu*>("MTools")->title().toStdString(), "&Tools");
  EXPECT_EQ(window.main->findChild<QMenu*>("MToolsWinamp")->title().toStdString(), "W&inAmp...");
  for (const auto& [name, caption] :
       std::vector<std::pair<const char*, const char*>>{{"MEditPlaySel", "&Play Selected"},
                                                        {"MEditPlayFol", "Play Folder"},
                                                        {"MEditPlayLoc", "Play From"},
                                                        {"MEditPlayList", "Play List"},
                                                        {"MViewDetails", "Playlist Properties..."}}) {
    ASSERT_NE(window.Action(name), nullptr) << name;
    EXPECT_EQ(window.Action(name)->text().toStdString(), caption);
  }
}

TEST_F(PlayTest, ShowsThePlayersMenuOnlyWithAPlayerThatKeepsBookmarks) {
  window.players.keep_bookmarks = true;
  window.associations.program = {"z:\\usr\\bin\\editor", "editor", false};
  window.Start();
  EXPECT_FALSE(window.main->findChild<QMenu*>("MToolsWinamp")->menuAction()->isVisible());
  EXPECT_FALSE(window.Action("s101")->isVisible());
  window.associations.program = {"z:\\usr\\bin\\mpv", "mpv", true};
  window.Restart();
  EXPECT_TRUE(window.main->findChild<QMenu*>("MToolsWinamp")->menuAction()->isVisible());
  EXPECT_TRUE(window.Action("s101")->isVisible());
  EXPECT_TRUE(window.Action("s101")->isSeparator());
  EXPECT_EQ(window.drives.Read("program/tmp.m3u"), "#\r\n");
}

TEST_F(PlayTest, KeepsTheCommandsAboutBookmarksWherePlayersHaveNoneOfTheirOwn) {
  window.associations.program = {"z:\\usr\\bin\\editor", "editor", false};
  window.Start();
  const auto shown = [&] {
    std::string names;
    for (const QAction* entry : window.main->findChild<QMenu*>("MToolsWinamp")->actions())
      if (entry->isVisible() && !entry->isSeparator()) names += " " + entry->objectName().toStdString();
    return names;
  };
  EXPECT_TRUE(window.main->findChild<QMenu*>("MToolsWinamp")->menuAction()->isVisible());
  EXPECT_TRUE(window.Action("s101")->isVisible());
  EXPECT_EQ(shown(), " MToolsLoadWinamp MToolsSaveWinamp MToolsLocWinamp");
  window.associations.program = {"z:\\usr\\bin\\mpv", "mpv", true};
  window.Restart();
  EXPECT_EQ(shown(), " MToolsLoadWinamp MToolsSaveWinamp MToolsLocWinamp MToolsWinampShutDown");
}

TEST_F(PlayTest, RemembersTheBookmarkFileThatItFound) {
  window.associations.program = {"c:\\Winamp\\winamp.exe", "", false};
  window.Start();
  EXPECT_EQ(window.document->WinampBookmarkFile, "c:\\winamp\\winamp.bm");
  window.main->close();
  EXPECT_EQ(window.store.GetSetting("QUBLET2021", "RF", "W"), "c:\\winamp\\winamp.bm");
  window.associations.program = {"d:\\studio\\play.exe", "", false};
  window.Restart();
  EXPECT_EQ(window.document->WinampBookmarkFile, "c:\\winamp\\winamp.bm");
}

TEST_F(PlayTest, RunsItsFourCommands) {
  StartWithRows();
  window.document->ListView1.SetSelected(2, true);
  window.program->commands.Run("MEditPlaySel");
  EXPECT_EQ(Played(), "c:\\one\\b.mp3|");
  window.program->commands.Run("MEditPlayFol");
  EXPECT_EQ(Played(), "c:\\one\\a.mp3|c:\\one\\b.mp3|");
  window.program->commands.Run("MEditPlayLoc");
  EXPECT_EQ(Played(), "c:\\one\\b.mp3|c:\\two\\c.mp3|");
  window.Run("MEditPlayList");
  EXPECT_EQ(Played(), "c:\\one\\a.mp3|c:\\one\\b.mp3|c:\\two\\c.mp3|");
}

TEST_F(PlayTest, RunsFromMenuAndToolbarAlike) {
  StartWithRows();
  QTest::mouseClick(window.List().viewport(), Qt::LeftButton, Qt::NoModifier, CenterOf(1));
  window.Run("MEditPlaySel");
  EXPECT_EQ(Played(), "c:\\one\\a.mp3|");
  window.Run("MEditPlayLoc");
  EXPECT_EQ(Played(), "c:\\one\\a.mp3|c:\\one\\b.mp3|c:\\two\\c.mp3|");
  window.Run("MEditPlayFol");
  EXPECT_EQ(Played(), "c:\\one\\a.mp3|c:\\one\\b.mp3|");
  window.Run("Toolbar1 Play Items");
  EXPECT_EQ(Played(), "c:\\one\\a.mp3|");
  window.Run("Toolbar1 Preview Playlist");
  EXPECT_EQ(Played(), "c:\\one\\a.mp3|c:\\one\\b.mp3|c:\\two\\c.mp3|");
}

TEST_F(PlayTest, PlaysTheSelectionOnEnterOrElseTheList) {
  StartWithRows();
  QTest::mouseClick(window.List().viewport(), Qt::LeftButton, Qt::NoModifier, CenterOf(3));
  QTest::keyClick(&window.List(), Qt::Key_Return);
  EXPECT_EQ(Played(), "c:\\two\\c.mp3|");
  window.Run("MEditSelNone");
  QTest::keyClick(&window.List(), Qt::Key_Enter);
  EXPECT_EQ(Played(), "c:\\one\\a.mp3|c:\\one\\b.mp3|c:\\two\\c.mp3|");
}

TEST_F(PlayTest, PlaysOnADoubleClickAsTheUserHasChosen) {
  StartWithRows();
  window.settings->DBLCLKACTN = true;
  DoubleClick(CenterOf(2));
  EXPECT_EQ(Played(), "c:\\one\\b.mp3|");
  window.settings->DBLCLKACTN = false;
  DoubleClick(CenterOf(2));
  EXPECT_EQ(Played(), "c:\\one\\b.mp3|c:\\two\\c.mp3|");
}

TEST_F(PlayTest, PlaysTheListOnADoubleClickBesideTheRows) {
  StartWithRows();
  DoubleClick(window.List().viewport()->rect().bottomLeft() - QPoint(-2, 2));
  EXPECT_EQ(Played(), "c:\\one\\a.mp3|c:\\one\\b.mp3|c:\\two\\c.mp3|");
}

class PropertiesTest : public PlayTest {
 protected:
  // Opens the window and hands it over while it is open.
  template <typename Look>
  void Open(int after, Look look) {
    bool seen = false;
    QTimer::singleShot(after, [&] {
      auto* stats = qobject_cast<PlaylistStats*>(QApplication::activeModalWidget());
      ASSERT_NE(stats, nullptr);
      look(*stats);
      seen = true;
      stats->findChild<QPushButton*>("cmdClose")->click();
    });
    window.Run("MViewDetails");
    EXPECT_TRUE(seen);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  }
  static std::string Text(const QWidget& stats, const char* label) {
    return stats.findChild<QLabel*>(label)->text().toStdString();
  }
};

TEST_F(PropertiesTest, SayThatTheListIsEmpty) {
  window.Start();
  window.Run("MViewDetails");
  EXPECT_EQ(
      window.dialogs.messages,
      (std::vector{ScriptedDialogs::Message{"The function cannot be performed because there are no Playlist items!\r"
                                            "Use Drag and Drop or 'Add Item' to add files/folders/m3us to the list.",
                                            MessageIcon::kExclamation, MessageButtons::kOk}}));
}

TEST_F(PropertiesTest, ShowPlaceHoldersBeforeTheWork) {
  StartWithRows();
  const std::size_t asked = window.associations.asked.size();
  Open(0, [&](PlaylistStats& stats) {
    EXPECT_EQ(stats.windowTitle().toStdString(), "Playlist Properties...");
    EXPECT_TRUE(stats.isVisible());
    EXPECT_EQ(Text(stats, "lblplaylistfilename"), "Refreshing...");
    for (const char* label :
         {"lblPlaylistsize", "lblRelativeFolder", "lblOpenwith", "lblFilecount", "lblFoldercount", "lblTotalsize",
          "lblMissingItems", "lblTotaltime", "lblAvtracklength", "lblAvtracksize"})
      EXPECT_EQ(Text(stats, label), "????") << label;
    EXPECT_EQ(Text(stats, "Morethanwarn"), "");
    EXPECT_EQ(stats.cursor().shape(), Qt::WaitCursor);
    EXPECT_EQ(window.associations.asked.size(), asked) << "no work has been done yet";
  });
}

TEST_F(PropertiesTest, ShowTheSummaryAfterATenthOfASecond) {
  window.associations.program = {"z:\\usr\\bin\\mpv", "mpv", true};
  StartWithRows();
  Open(400, [&](PlaylistStats& stats) {
    EXPECT_EQ(Text(stats, "lblplaylistfilename"), "'Unsaved Playlist'");
    EXPECT_EQ(Text(stats, "lblFilecount"), "3 items");
    EXPECT_EQ(Text(stats, "lblFoldercount"), "2 folders");
    EXPECT_EQ(Text(stats, "lblTotalsize"), "9 bytes");
    EXPECT_EQ(Text(stats, "lblOpenwith"), "mpv");
    EXPECT_EQ(Text(stats, "lblTotaltime"), "????");
    EXPECT_EQ(Text(stats, "Morethanwarn"), "' > ' sign indicates 'More than'..");
    EXPECT_EQ(stats.cursor().shape(), Qt::ArrowCursor);
  });
  EXPECT_EQ(window.associations.asked.back(), "c:\\program\\last.m3u");
}

TEST_F(PropertiesTest, HaveACaptionBesideEachValue) {
  StartWithRows();
  Open(0, [](PlaylistStats& stats) {
    EXPECT_NE(stats.findChild<QTabWidget*>("SSTab1"), nullptr);
    EXPECT_EQ(stats.findChild<QPushButton*>("cmdClose")->text().toStdString(), "&Close");
    for (const StatisticsLine& line : StatisticsLines({}, ","))
      EXPECT_EQ(Text(stats, (std::string("Caption_") + line.control).c_str()), line.caption);
  });
}

}  // namespace
}  // namespace qublet

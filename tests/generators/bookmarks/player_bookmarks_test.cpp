#include "generators/bookmarks/player_bookmarks.h"

#include <gtest/gtest.h>

#include "support/bookmarks_test_base.h"

namespace qublet {
namespace {

constexpr const char* kPath = "c:\\player\\winamp.bm";

class PlayerBookmarksTest : public BookmarksTestBase {
 protected:
  PlayerBookmarksTest() { std::filesystem::create_directory(drives_.C() / "player"); }

  // The player's file is known.
  void WriteFile(const std::string& content) {
    drives_.Write("player/winamp.bm", content);
    Known() = kPath;
  }
  std::string& Known() { return engine_.document.WinampBookmarkFile; }
  std::string File() const { return drives_.Read("player/winamp.bm"); }
  std::string Backup() const { return drives_.Read("player/winamp.bm.bak"); }
  static ScriptedDialogs::Message NotFound() {
    return Told("Could not find the Bookmark file, please locate it. You will only need to do this once.",
                MessageIcon::kExclamation);
  }
  static ScriptedDialogs::Message BackedUp() {
    return Told("The program just created a backup of the Bookmark file as c:\\player\\winamp.bm.bak",
                MessageIcon::kInformation);
  }
  static ScriptedDialogs::Message Updated() {
    return Told("The Bookmark file was successfully updated. You may need to restart WinAmp to view the changes.",
                MessageIcon::kInformation);
  }

  PlayerBookmarks bookmarks_{engine_};
};

TEST_F(PlayerBookmarksTest, AreAddedToTheListWithoutTheirTitles) {
  FillList("x--");
  WriteFile("c:\\m\\c.mp3\r\nArtist - C\r\nC:\\m\\a.mp3\r\nA\r\n");
  bookmarks_.MToolsLoadWinamp_Click();
  EXPECT_EQ(Names(), "a.mp3 b.mp3 c.mp3 c.mp3 a.mp3");
  EXPECT_EQ(Selection(), "---xx");
  EXPECT_TRUE(engine_.document.PlaylistChanged);
  EXPECT_TRUE(dialogs_.messages.empty());
  EXPECT_GT(feedback_.most_waits, 0);
  EXPECT_EQ(feedback_.waits, 0);
}

TEST_F(PlayerBookmarksTest, BringATitleThatNamesMusicAsAnItem) {
  WriteFile("c:\\m\\c.mp3\r\nThe .mp3 Song\r\n");
  bookmarks_.MToolsLoadWinamp_Click();
  EXPECT_EQ(Names(), "c.mp3 The .mp3 Song");
}

TEST_F(PlayerBookmarksTest, AreAskedForWhereTheyAreNotKnown) {
  drives_.Write("player/winamp.bm", "c:\\m\\c.mp3\r\nC\r\n");
  dialogs_.open_names.emplace_back(kPath);
  bookmarks_.MToolsLoadWinamp_Click();
  EXPECT_EQ(dialogs_.messages, Messages{NotFound()});
  ASSERT_EQ(dialogs_.open_requests.size(), 1U);
  EXPECT_EQ(dialogs_.open_requests[0].file_name, "winamp.bm");
  EXPECT_EQ(dialogs_.open_requests[0].filter, "Bookmark Files (*.bm)|*.bm|");
  EXPECT_EQ(dialogs_.open_requests[0].default_extension, "bm");
  EXPECT_EQ(Known(), kPath);
  EXPECT_EQ(Names(), "c.mp3");
}

TEST_F(PlayerBookmarksTest, AreAskedForUntilTheUserHasNone) {
  Known() = "c:\\gone\\winamp.bm";
  dialogs_.open_names = {std::optional<std::string>("c:\\nowhere.bm")};
  bookmarks_.MToolsLoadWinamp_Click();
  EXPECT_EQ(dialogs_.messages,
            (Messages{NotFound(), Told("c:\\nowhere.bm is not valid.", MessageIcon::kExclamation)}));
  EXPECT_EQ(dialogs_.open_requests.at(0).file_name, "c:\\gone\\winamp.bm");
  EXPECT_EQ(Known(), "c:\\gone\\winamp.bm");
  EXPECT_EQ(Rows().Count(), 0);
}

TEST_F(PlayerBookmarksTest, ACancelSaysNothing) {
  EXPECT_FALSE(bookmarks_.LocateBookmarkFile());
  EXPECT_TRUE(dialogs_.messages.empty());
  EXPECT_EQ(Known(), "");
}

TEST_F(PlayerBookmarksTest, AFolderIsNotValid) {
  dialogs_.open_names.emplace_back("C:\\player\\");
  EXPECT_FALSE(bookmarks_.LocateBookmarkFile());
  EXPECT_EQ(dialogs_.messages, Messages{Told("c:\\player is not valid.", MessageIcon::kExclamation)});
  EXPECT_EQ(Known(), "");
}

TEST_F(PlayerBookmarksTest, AnyFileThatIsThereIsTaken) {
  for (const char* name : {"x.m3u", "x.bm", "x.txt", "x"}) {
    drives_.Write(name, "");
    dialogs_.open_names.emplace_back(std::string("C:\\") + name);
    bookmarks_.MToolsLocWinamp_Click();
    EXPECT_EQ(Known(), std::string("c:\\") + name);
  }
  EXPECT_TRUE(dialogs_.messages.empty());
}

TEST_F(PlayerBookmarksTest, AreReplacedByTheWholeList) {
  FillList("-x-");
  WriteFile("c:\\old.mp3\r\nOld\r\n");
  drives_.Write("player/winamp.bm.bak", "older");
  bookmarks_.MToolsSaveWinamp_Click();
  EXPECT_EQ(File(), "c:\\m\\a.mp3\r\nA\r\nc:\\m\\b.mp3\r\nB\r\nc:\\m\\c.mp3\r\nC\r\n");
  EXPECT_EQ(Backup(), "c:\\old.mp3\r\nOld\r\n");
  EXPECT_EQ(dialogs_.messages, (Messages{BackedUp(), Updated()}));
  EXPECT_FALSE(engine_.document.PlaylistChanged);
  EXPECT_GT(feedback_.most_waits, 0);
  EXPECT_EQ(feedback_.waits, 0);
}

TEST_F(PlayerBookmarksTest, HoldTheNamesThatTheDiskHas) {
  AddRows({"M\\A.MP3"});
  WriteFile("");
  bookmarks_.MToolsSaveWinamp_Click();
  EXPECT_EQ(File(), "c:\\m\\a.mp3\r\nA\r\n");
}

TEST_F(PlayerBookmarksTest, ComeBackAsTheyWereSaved) {
  FillList("---");
  WriteFile("");
  bookmarks_.MToolsSaveWinamp_Click();
  Rows().Clear();
  bookmarks_.MToolsLoadWinamp_Click();
  EXPECT_EQ(Names(), "a.mp3 b.mp3 c.mp3");
}

TEST_F(PlayerBookmarksTest, AnEmptyListIsToldAndNothingIsAsked) {
  WriteFile("old");
  bookmarks_.MToolsSaveWinamp_Click();
  ASSERT_EQ(dialogs_.messages.size(), 1U);
  EXPECT_TRUE(dialogs_.messages[0].text.starts_with("The function cannot be performed because there are no"));
  EXPECT_EQ(File(), "old");
  EXPECT_EQ(Backup(), "");
  Known() = "";
  bookmarks_.MToolsSaveWinamp_Click();
  EXPECT_EQ(dialogs_.messages.size(), 2U);
  EXPECT_TRUE(dialogs_.open_requests.empty());
}

TEST_F(PlayerBookmarksTest, AFileThatIsNotThereIsNeverMade) {
  FillList("---");
  Known() = kPath;
  bookmarks_.MToolsSaveWinamp_Click();
  EXPECT_EQ(dialogs_.messages, Messages{NotFound()});
  EXPECT_FALSE(std::filesystem::exists(drives_.C() / "player/winamp.bm"));
}

TEST_F(PlayerBookmarksTest, AreSavedIntoTheFileThatTheUserFinds) {
  FillList("---");
  drives_.Write("player/winamp.bm", "old");
  dialogs_.open_names.emplace_back(kPath);
  bookmarks_.MToolsSaveWinamp_Click();
  EXPECT_EQ(dialogs_.messages, (Messages{NotFound(), BackedUp(), Updated()}));
  EXPECT_TRUE(File().starts_with("c:\\m\\a.mp3\r\nA\r\n"));
  EXPECT_EQ(Backup(), "old");
}

TEST_F(PlayerBookmarksTest, AreNotTouchedWithoutABackup) {
  FillList("---");
  WriteFile("old");
  std::filesystem::create_directory(drives_.C() / "player/winamp.bm.bak");
  bookmarks_.MToolsSaveWinamp_Click();
  EXPECT_EQ(dialogs_.messages, Messages{Told("The process failed because a backup copy of the Bookmarks file could "
                                             "not be created!",
                                             MessageIcon::kExclamation)});
  EXPECT_EQ(File(), "old");
}

TEST_F(PlayerBookmarksTest, AFailureIsToldAndTheBackupStays) {
  FillList("---");
  WriteFile("old");
  SetReadOnly("player/winamp.bm", true);
  bookmarks_.MToolsSaveWinamp_Click();
  EXPECT_EQ(dialogs_.messages,
            (Messages{BackedUp(), Told("Unable to write to the bookmark file.", MessageIcon::kStop)}));
  EXPECT_EQ(File(), "old");
  EXPECT_EQ(Backup(), "old");
}

TEST_F(PlayerBookmarksTest, AStopLeavesThemAsTheyWereWithoutAWord) {
  FillList("---");
  for (int i = 0; i < 40; ++i) AddRows({"m\\a.mp3"});
  WriteFile("old");
  feedback_.stopped = true;
  bookmarks_.MToolsSaveWinamp_Click();
  EXPECT_EQ(dialogs_.messages, Messages{BackedUp()});
  EXPECT_EQ(File(), "old");
}

}  // namespace
}  // namespace qublet

#include "playlist/kept_line.h"

#include "playlist/list_commands.h"
#include "playlist/playlist_files_test_base.h"
#include "playlist/row_paths.h"

namespace qublet {
namespace {

// Missing lines of a playlist, and how they come back.
class KeptLinesTest : public PlaylistFilesTest {
 protected:
  KeptLinesTest() { dialogs_.answers.assign(200, MessageAnswer::kYes); }

  // What a playlist in "c:\lists" holds after it was opened and saved.
  std::string SavedAgain(const std::string& bytes, const std::string& name = "list.m3u") {
    return SavedTo("c:\\lists\\" + name, bytes, name);
  }
  // What a save under another name makes of it.
  std::string SavedTo(const std::string& target, const std::string& bytes, const std::string& name = "list.m3u",
                      bool relative = false) {
    drives_.Write("lists/" + name, bytes);
    EXPECT_TRUE(Open("c:\\lists\\" + name)) << bytes;
    EXPECT_TRUE(SaveAs(target, relative)) << target;
    return TemporaryDrives::ReadAt(files_->ToNative(target));
  }
  void OpenLines(const std::string& bytes) {
    drives_.Write("lists/list.m3u", bytes);
    ASSERT_TRUE(Open("c:\\lists\\list.m3u"));
  }
  std::string Saved() {
    EXPECT_TRUE(Save());
    return drives_.Read("lists/list.m3u");
  }
  static Collection KeptOf(const RowStore& rows) {
    Collection kept;
    for (int i = 1; i <= rows.Count(); ++i) kept.push_back(rows.At(i).kept ? rows.At(i).kept->bytes : "-");
    return kept;
  }
};

TEST_F(KeptLinesTest, GoBackByteForByte) {
  for (const std::string line : {"gone.mp3",
                                 "C:\\gone\\X.mp3",
                                 "c:\\gone\\..\\x.mp3",
                                 "c:/gone/x.mp3",
                                 "..\\x.mp3",
                                 ".\\x.mp3",
                                 "\\gone\\x.mp3",
                                 "\\\\server\\share\\x.mp3",
                                 "q:\\no drive.mp3",
                                 "gone\\x.mp3",
                                 "gone/x.mp3",
                                 "/gone/x.mp3",
                                 "gone/x\\y.mp3",
                                 "http://host/a%20b.mp3?x=1",
                                 "HTTP://host/x.mp3",
                                 "file:///gone/a%20b.mp3",
                                 "  x.mp3\t",
                                 "x.mp3 ",
                                 "a\x01.mp3",
                                 "Bj\u00F6rk.mp3",
                                 "Bj\xF6rk.mp3",
                                 "\xFF\xFE.mp3",
                                 "\xC3\x28.mp3",
                                 "x.mp3.bak",
                                 "a%20b.mp3",
                                 "x.mp3/",
                                 "x.mp3\\",
                                 "Disc: 1\\x.mp3"}) {
    EXPECT_EQ(SavedAgain("c:\\m\\a\\1.mp3\r\n" + line + "\r\n"), "c:\\m\\a\\1.mp3\r\n" + line + "\r\n");
  }
}

TEST_F(KeptLinesTest, KeepTheirBytesWhereTheRestBecomesUtf8) {
  OpenLines("gone\xF6.mp3\r\nc:\\m\\a\\1.mp3\r\n");
  drives_.Write("x/\u97F3.mp3", "abc");
  Add("c:\\x\\\u97F3.mp3");
  EXPECT_EQ(Saved(), "gone\xF6.mp3\r\nc:\\m\\a\\1.mp3\r\nc:\\x\\\u97F3.mp3\r\n");
  ASSERT_TRUE(Open("c:\\lists\\list.m3u"));
  EXPECT_EQ(Rows().At(1).FullPath(), "c:\\lists\\gone\u00F6.mp3");
  EXPECT_EQ(Rows().At(3).icon, RowIcon::kNormal);
}

TEST_F(KeptLinesTest, LeaveTheCodePageToTheOthers) {
  drives_.Write("x/\u00E9.mp3", "abc");
  OpenLines("gone\u97F3.mp3\r\n");
  Add("c:\\x\\\u00E9.mp3");
  EXPECT_EQ(Saved(), "gone\u97F3.mp3\r\nc:\\x\\\xE9.mp3\r\n");
}

TEST_F(KeptLinesTest, AreNeverTakenForAMarkAtTheBeginning) {
  for (const std::string line : {"\xFF\xFE.mp3", "\xFE\xFF.mp3", "\xEF\xBB\xBF.mp3"}) {
    const std::string saved = SavedAgain("#EXTM3U\r\n" + line + "\r\n");
    EXPECT_EQ(saved, "\xEF\xBB\xBF" + line + "\r\n");
    EXPECT_EQ(SavedAgain(saved), saved);
  }
}

TEST_F(KeptLinesTest, AreOfRowsWithoutAFileAndOfNoOthers) {
  drives_.Write("lists/empty.mp3", "");
  std::filesystem::create_directory(drives_.C() / "lists" / "folder.mp3");
  OpenLines("empty.mp3\r\n..\\m\\a\\1.mp3\r\ngone.mp3\r\nfolder.mp3\r\n");
  EXPECT_EQ(KeptOf(Rows()), (Collection{"-", "-", "gone.mp3", "folder.mp3"})) << "an empty file is there";
  EXPECT_EQ(Saved(), "c:\\lists\\empty.mp3\r\nc:\\lists\\..\\m\\a\\1.mp3\r\ngone.mp3\r\nfolder.mp3\r\n");
}

TEST_F(KeptLinesTest, KnowTheirFolderAndType) {
  OpenLines("gone.mp3\r\n");
  ASSERT_TRUE(Rows().At(1).kept);
  EXPECT_EQ(Rows().At(1).kept->source->folder, "c:\\lists");
  EXPECT_FALSE(Rows().At(1).kept->source->native);
  drives_.Write("list.m3u8", "gone.mp3\n");
  ASSERT_TRUE(Open("c:\\list.m3u8"));
  EXPECT_EQ(Rows().At(1).kept->source->folder, "c:");
  EXPECT_TRUE(Rows().At(1).kept->source->native);
}

TEST_F(KeptLinesTest, MoveWithTheirRows) {
  OpenLines("b.mp3\r\nC:\\a.mp3\r\nc.mp3\r\n");
  Rows().SwapRows(1, 2);
  EXPECT_EQ(KeptOf(Rows()), (Collection{"C:\\a.mp3", "b.mp3", "c.mp3"}));
  Rows().Reorder({3, 1, 2});
  EXPECT_EQ(KeptOf(Rows()), (Collection{"c.mp3", "C:\\a.mp3", "b.mp3"}));
  Rows().Remove(2);
  EXPECT_EQ(Saved(), "c.mp3\r\nb.mp3\r\n");
}

TEST_F(KeptLinesTest, MoveWithSortsAndMoves) {
  ListCommands commands(document_, items_, settings_, services_, view_);
  OpenLines("b.mp3\r\nC:\\a.mp3\r\nc.mp3\r\n");
  commands.ListView1_ColumnClick(1);
  EXPECT_EQ(KeptOf(Rows()), (Collection{"C:\\a.mp3", "b.mp3", "c.mp3"}));
  Rows().SetSelected(3, true);
  commands.MEditMoveUp_Click();
  EXPECT_EQ(KeptOf(Rows()), (Collection{"C:\\a.mp3", "c.mp3", "b.mp3"}));
  commands.MEditSelTop_Click();
  EXPECT_EQ(KeptOf(Rows()), (Collection{"c.mp3", "C:\\a.mp3", "b.mp3"}));
  EXPECT_EQ(Saved(), "c.mp3\r\nC:\\a.mp3\r\nb.mp3\r\n");
}

TEST_F(KeptLinesTest, StayThroughARefreshWhileNoFileIsThere) {
  OpenLines("Gone.mp3\r\ncame.mp3\r\nsub/x.mp3\r\n");
  drives_.Write("lists/came.mp3", "abc");
  items_.MViewRefresh_Click();
  EXPECT_EQ(KeptOf(Rows()), (Collection{"Gone.mp3", "-", "sub/x.mp3"}));
  EXPECT_EQ(Saved(), "Gone.mp3\r\nc:\\lists\\came.mp3\r\nsub/x.mp3\r\n");
}

TEST_F(KeptLinesTest, StayWhenARefreshIsStopped) {
  OpenLines("gone.mp3\r\n");
  feedback_.stop_in_batch = feedback_.progress.size() + 1;
  items_.MViewRefresh_Click();
  feedback_.stopped = false;
  EXPECT_EQ(KeptOf(Rows()), Collection{"gone.mp3"});
}

TEST_F(KeptLinesTest, GoWithAChangeOfThePathAlone) {
  OpenLines("a.mp3\r\nb.mp3\r\nc.mp3\r\nd.mp3\r\n");
  Rows().SetCell(1, kFileName, "x.mp3");
  Rows().SetCell(2, kPath, "c:\\x\\");
  Rows().SetCell(3, kFileName, "c.mp3");
  Rows().SetCell(3, kPath, "c:\\lists\\");
  Rows().SetCell(4, kTime, "1:00");
  EXPECT_EQ(KeptOf(Rows()), (Collection{"-", "-", "c.mp3", "d.mp3"}));
  EXPECT_EQ(Saved(), "c:\\lists\\x.mp3\r\nc:\\x\\b.mp3\r\nc.mp3\r\nd.mp3\r\n");
}

TEST_F(KeptLinesTest, GoBackIntoAnotherFileOfTheirFolder) {
  EXPECT_EQ(SavedTo("c:\\lists\\other.m3u", "sub\\Gone.mp3\r\nC:\\x.mp3\r\n"), "sub\\Gone.mp3\r\nC:\\x.mp3\r\n");
}

TEST_F(KeptLinesTest, TakeTheFullPathInAnotherFolderUnlessTheyAreAbsolute) {
  EXPECT_EQ(SavedTo("c:\\x\\other.m3u", "sub\\gone.mp3\r\nC:\\X.mp3\r\nhttp://host/x.mp3\r\n"),
            "c:\\lists\\sub\\gone.mp3\r\nC:\\X.mp3\r\nhttp://host/x.mp3\r\n");
}

TEST_F(KeptLinesTest, TakeTheFullPathOfOneRowInEachRelativeSave) {
  EXPECT_EQ(
      SavedTo("c:\\lists\\list.m3u", "C:\\Lists\\x.mp3\r\nc:\\lists\\y.mp3\r\nsub\\gone.mp3\r\n", "list.m3u", true),
      "c:\\Lists\\x.mp3\r\ny.mp3\r\nsub\\gone.mp3\r\n");
}

#ifndef _WIN32
// ":" beyond a drive, and what else a path in drive form can't hold.
TEST_F(KeptLinesTest, AreWholePathsElsewhereThoughTheirRowsAreNone) {
  const std::string list = "../gone/Mission: x.mp3\nX:/a/b.mp3\nC:gone.mp3\n";
  const std::string c = drives_.C().string();
  EXPECT_EQ(SavedTo("c:\\x\\other.m3u", list), c + "/gone/Mission: x.mp3\r\nX:/a/b.mp3\r\nC:gone.mp3\r\n");
  EXPECT_EQ(SavedTo("c:\\x\\other.m3u8", list), c + "/gone/Mission: x.mp3\nX:/a/b.mp3\n" + c + "/gone.mp3\n");
  EXPECT_EQ(SavedTo("c:\\x\\other.m3u", "../gone/Mission: x.mp3\nC:gone.mp3\n", "list.m3u", true),
            c + "/gone/Mission: x.mp3\r\nc:\\gone.mp3\r\n");
  OpenLines(list);
  EXPECT_EQ(PathsOf(Rows(), WhichRows::kAll),
            (Collection{"c:\\gone\\Mission\uF03A x.mp3", "x:\\a\\b.mp3", "c:\\gone.mp3"}));
  drives_.Write("gone/Mission: x.mp3", "abc");
  items_.MViewRefresh_Click();
  EXPECT_EQ(KeptOf(Rows()), (Collection{"-", "X:/a/b.mp3", "C:gone.mp3"}));
}

TEST_F(KeptLinesTest, BringNoLettersThatStandInForOthersIntoAnyPlaylist) {
  const std::string lists = (drives_.C() / "lists").string();
  EXPECT_EQ(SavedTo("c:\\x\\other.m3u", "no/t\\here.mp3\n", "list.m3u8"), lists + "/no/t\\here.mp3\r\n");
  EXPECT_EQ(SavedTo("c:\\lists\\other.m3u", "./gone\\slash.mp3\n", "list.m3u8", true),
            lists + "/gone\\slash.mp3\r\n");
  EXPECT_EQ(playlist_files_.LeftAbsolute(), 1);
}
#endif

TEST_F(KeptLinesTest, OfImportedListsAreReadAgainstTheirOwnFolder) {
  OpenLines("a.mp3\r\n");
  drives_.Write("x/other.m3u", "b.mp3\r\nC:\\c.mp3\r\n");
  Import("c:\\x\\other.m3u");
  EXPECT_EQ(Saved(), "a.mp3\r\nc:\\x\\b.mp3\r\nC:\\c.mp3\r\n");
}

TEST_F(KeptLinesTest, AreInNoPathsThatAreHandedOver) {
  OpenLines("sub/gone.mp3\r\nC:\\x.mp3\r\n");
  items_.SaveFileArrayFromList(true);
  EXPECT_EQ(document_.FileArray.back(), "c:\\x.mp3");
}

TEST_F(KeptLinesTest, CostARowThatHasAFileUnderItsNameFourPointers) {
  EXPECT_LE(sizeof(Row), sizeof(std::string) * (kColumnCount + 2) + 5 * sizeof(void*));
}

}  // namespace
}  // namespace qublet

#include "playlist/selection.h"

#include "support/list_test_base.h"
#include "support/scripted_dialogs.h"
#include "support/scripted_random.h"
#include "support/scripted_shell.h"

namespace qublet {
namespace {

class SelectionTest : public ListTestBase {
 protected:
  // Rows named "1", "2", ...: an "x" is a selected one.
  void Fill(std::string_view selection) {
    std::vector<Row> rows;
    for (const char mark : selection) {
      rows.push_back(NamedRow(std::to_string(rows.size() + 1)));
      rows.back().selected = mark == 'x';
    }
    Rows().Insert(1, std::move(rows));
  }
  void Icons(std::initializer_list<RowIcon> icons) {
    int row = 0;
    for (const RowIcon icon : icons) Rows().SetIcon(++row, icon);
  }
  // A digit a row.
  std::string Icons() const {
    std::string digits;
    for (int i = 1; i <= document_.ListView1.Count(); ++i) {
      digits += std::to_string(static_cast<int>(document_.ListView1.At(i).icon));
    }
    return digits;
  }
  void Add(const std::string& path) { items_.AddStuff(path, false); }
  void SelectRows(std::initializer_list<int> rows) {
    for (const int row : rows) Rows().SetSelected(row, true);
  }

  ScriptedDialogs& dialogs_ = fakes_.dialogs;
  ScriptedShell& shell_ = fakes_.shell;
  ScriptedRandom& random_ = fakes_.random;
};

using Selecting = SelectionTest;

TEST_F(Selecting, AllTakesEveryRow) {
  Fill("x--");
  SelectAll(Rows());
  EXPECT_EQ(Selection(), "xxx");
}

TEST_F(Selecting, InvertedTurnsEveryRowRound) {
  Fill("x-xx-");
  InvertSelection(Rows());
  EXPECT_EQ(Selection(), "-x--x");
}

TEST_F(Selecting, AlternateDropsTheLastAndKeepsTheOneBefore) {
  Fill("xxx");
  AlternateSelection(Rows());
  EXPECT_EQ(Selection(), "-x-");
}

TEST_F(Selecting, AlternateCountsSelectedRowsOnly) {
  Fill("x-xx--x-x-");
  AlternateSelection(Rows());
  EXPECT_EQ(Selection(), "--x---x---");
}

TEST_F(Selecting, AlternateWithOneRowLeavesNone) {
  Fill("--x-");
  AlternateSelection(Rows());
  EXPECT_EQ(Selection(), "----");
}

TEST_F(Selecting, AlternateOfNothingIsNothing) {
  Fill("---");
  AlternateSelection(Rows());
  EXPECT_EQ(Selection(), "---");
}

TEST_F(Selecting, AtRandomTakesARowFromOneHalfOnWhateverWasSelected) {
  Fill("xx--");
  random_.draws = {0.49, 0.5, 0.0, 0.99};
  SelectAtRandom(Rows(), random_);
  EXPECT_EQ(Selection(), "-x-x");
  EXPECT_EQ(random_.reseeded, 4);
  EXPECT_EQ(random_.drawn, 4);
}

TEST_F(Selecting, AtRandomTakesOneRowMoreThanHalfAtMost) {
  random_.otherwise = 0.9;
  Fill("----------");
  SelectAtRandom(Rows(), random_);
  EXPECT_EQ(Selection(), "xxxxxx----");
  Rows().Clear();
  Fill("-----");
  SelectAtRandom(Rows(), random_);
  EXPECT_EQ(Selection(), "xxx--");
}

TEST_F(Selecting, AtRandomTakesTheOnlyRowOrNot) {
  Fill("-");
  random_.draws = {0.7, 0.3};
  SelectAtRandom(Rows(), random_);
  EXPECT_EQ(Selection(), "x");
  SelectAtRandom(Rows(), random_);
  EXPECT_EQ(Selection(), "-");
}

TEST_F(Selecting, InFoldersTakesAllRowsInTheFoldersOfTheSelectedOnesOnly) {
  Touch({"one/a.mp3", "one/b.mp3", "one/sub/c.mp3", "two/d.mp3", "three/e.mp3", "three/f.mp3"});
  Add("c:\\one");
  Add("c:\\two");
  Add("c:\\three");
  SelectRows({2, 6});
  SelectInFolders(document_.ListView1);
  EXPECT_EQ(Names(), "a.mp3 b.mp3 c.mp3 d.mp3 e.mp3 f.mp3");
  EXPECT_EQ(Selection(), "xx--xx");
}

TEST_F(Selecting, InFoldersOfNothingIsNothing) {
  Touch({"one/a.mp3"});
  Add("c:\\one");
  SelectInFolders(document_.ListView1);
  EXPECT_EQ(Selection(), "-");
}

TEST_F(Selecting, InFoldersComparesTheFolderAsTextWithTheNameTakenOutEverywhere) {
  Touch({"a.mp3/a.mp3", "a.mp3/b.mp3"});
  Add("c:\\a.mp3");
  SelectRows({1});
  SelectInFolders(document_.ListView1);
  EXPECT_EQ(Rows().At(1).cells[kPath], "c:\\\\");
  EXPECT_EQ(Selection(), "x-");
}

using Marking = SelectionTest;

TEST_F(Marking, ChangesTheSelectedRowsAndNoMissingOne) {
  Fill("xx-x");
  Icons({RowIcon::kNormal, RowIcon::kMissing, RowIcon::kNormal, RowIcon::kRed});
  SetRowMark(Rows(), RowIcon::kBlue);
  EXPECT_EQ(Icons(), "3213");
  SetRowMark(Rows(), RowIcon::kGreen);
  EXPECT_EQ(Icons(), "4214");
  SetRowMark(Rows(), RowIcon::kRed);
  EXPECT_EQ(Icons(), "5215");
  SetRowMark(Rows(), RowIcon::kNormal);
  EXPECT_EQ(Icons(), "1211");
  EXPECT_FALSE(document_.PlaylistChanged);
}

TEST_F(Marking, OfNothingDoesNothing) {
  Fill("--");
  SetRowMark(Rows(), RowIcon::kBlue);
  EXPECT_EQ(Icons(), "11");
}

TEST_F(Marking, FindsMarksOfAllColoursTogether) {
  Fill("x----x");
  Icons({RowIcon::kNormal, RowIcon::kMissing, RowIcon::kBlue, RowIcon::kGreen, RowIcon::kRed, RowIcon::kNormal});
  SelectCheckMarked(Rows());
  EXPECT_EQ(Selection(), "--xxx-");
}

TEST_F(Marking, FindingNoneClearsTheSelection) {
  Fill("x-x");
  SelectCheckMarked(Rows());
  EXPECT_EQ(Selection(), "---");
}

TEST_F(Marking, IsLostWhenTheRowsAreReadAgain) {
  Touch({"a.mp3"});
  Add("c:\\a.mp3");
  Rows().SetIcon(1, RowIcon::kRed);
  items_.MViewRefresh_Click();
  EXPECT_EQ(Icons(), "1");
}

using ImportingFolders = SelectionTest;

TEST_F(ImportingFolders, AddsEachFolderAtTheEndWithWhatIsBelow) {
  Touch({"one/a.mp3", "one/sub/b.mp3", "two/c.mp3"});
  Add("c:\\one\\a.mp3");
  Add("c:\\two\\c.mp3");
  SelectRows({1, 2});
  document_.PlaylistChanged = false;
  ImportFolders(document_.ListView1, items_);
  EXPECT_EQ(Names(), "a.mp3 c.mp3 a.mp3 b.mp3 c.mp3");
  EXPECT_EQ(Selection(), "----x") << "the selection moves to the last batch";
  EXPECT_TRUE(document_.PlaylistChanged);
}

TEST_F(ImportingFolders, ReadsAFolderAgainWhenTheRowsComeBackToIt) {
  Touch({"one/a.mp3", "two/c.mp3"});
  Add("c:\\one");
  Add("c:\\two");
  Add("c:\\one");
  SelectRows({1, 2, 3});
  ImportFolders(document_.ListView1, items_);
  EXPECT_EQ(Names(), "a.mp3 c.mp3 a.mp3 a.mp3 c.mp3 a.mp3");
}

TEST_F(ImportingFolders, WithoutASelectionOrAFolderDoesNothing) {
  Touch({"one/a.mp3"});
  Add("c:\\one");
  ImportFolders(document_.ListView1, items_);
  EXPECT_EQ(Names(), "a.mp3");
  std::filesystem::remove_all(drives_.C() / "one");
  SelectRows({1});
  ImportFolders(document_.ListView1, items_);
  EXPECT_EQ(Names(), "a.mp3");
}

using FolderInCommon = SelectionTest;

TEST_F(FolderInCommon, IsTheOneThatTheSelectedRowsShare) {
  Touch({"music/one/a.mp3", "music/two/b.mp3", "c.mp3"});
  Add("c:\\music");
  Add("c:\\c.mp3");
  SelectRows({1});
  EXPECT_EQ(CommonFolder(document_.ListView1, *files_), "c:\\music\\one");
  SelectRows({2});
  EXPECT_EQ(CommonFolder(document_.ListView1, *files_), "c:\\music");
  SelectRows({3});
  EXPECT_EQ(CommonFolder(document_.ListView1, *files_), "c:");
}

TEST_F(FolderInCommon, IsTheCurrentOneForFilesOnSeveralDrives) {
  Touch({"a.mp3", "here/b.mp3"});
  TemporaryDrives::WriteAt(drives_.D() / "b.mp3", "abc");
  Add("c:\\a.mp3");
  Add("d:\\b.mp3");
  SelectRows({1, 2});
  files_->SetCurrentFolder("c:\\here");
  EXPECT_EQ(CommonFolder(document_.ListView1, *files_), "c:\\here");
}

using Removing = SelectionTest;

TEST_F(Removing, TakesTheSelectedRowsAndLeavesFilesAndNumbers) {
  Touch({"one/a.mp3", "one/b.mp3", "one/c.mp3"});
  Add("c:\\one");
  SelectRows({2});
  document_.PlaylistChanged = false;
  RemoveSelectedRows(document_);
  EXPECT_EQ(Names(), "a.mp3 c.mp3");
  EXPECT_EQ(Orders(), "1 3");
  EXPECT_EQ(drives_.Read("one/b.mp3"), "abc");
  EXPECT_TRUE(document_.PlaylistChanged);
}

TEST_F(Removing, NothingIsNoChange) {
  Fill("--");
  RemoveSelectedRows(document_);
  EXPECT_EQ(Names(), "1 2");
  EXPECT_FALSE(document_.PlaylistChanged);
}

TEST_F(Removing, AllLeavesAnEmptyChangedList) {
  Fill("xxx");
  RemoveSelectedRows(document_);
  EXPECT_EQ(Rows().Count(), 0);
  EXPECT_TRUE(document_.PlaylistChanged);
}

class Replacing : public SelectionTest {
 protected:
  Replacing() {
    Touch({"one/a.mp3", "one/c.mp3", "new/b.mp3", "note.txt"});
    drives_.Write("list.m3u", "one\\a.mp3\r\none\\gone.mp3\r\none\\c.mp3\r\n");
    Add("c:\\list.m3u");
    Rows().SetFocusedRow(2);
    SelectRows({2});
    document_.PlaylistChanged = false;
  }
  bool Replace() { return ReplaceCurrentRow(document_, items_, dialogs_); }
};

TEST_F(Replacing, PutsTheNewFileInThePlaceOfTheOldRow) {
  dialogs_.open_names = {"c:\\new\\b.mp3"};
  EXPECT_TRUE(Replace());
  EXPECT_EQ(Names(), "a.mp3 b.mp3 c.mp3");
  EXPECT_EQ(Selection(), "-x-");
  EXPECT_EQ(Rows().FocusedRow(), 2);
  EXPECT_EQ(Rows().At(2).icon, RowIcon::kNormal);
  EXPECT_EQ(Rows().At(2).cells[kPath], "c:\\new\\");
  EXPECT_EQ(Rows().At(2).cells[kHiddenSize], "3");
  EXPECT_NE(Rows().At(2).cells[kOriginalOrder], "");
  EXPECT_EQ(document_.WorkFolder, "c:\\new\\b.mp3");
  EXPECT_TRUE(document_.PlaylistChanged);
  EXPECT_TRUE(dialogs_.messages.empty());
}

TEST_F(Replacing, AsksForAnyFileStartingAtTheOldName) {
  Replace();
  ASSERT_EQ(dialogs_.open_requests.size(), 1U);
  EXPECT_EQ(dialogs_.open_requests[0].file_name, "gone.mp3");
  EXPECT_EQ(dialogs_.open_requests[0].filter, "All files (*.*)|*.*|");
}

TEST_F(Replacing, CancelledChangesNothing) {
  document_.WorkFolder = "c:\\one";
  EXPECT_FALSE(Replace());
  EXPECT_EQ(Names(), "a.mp3 gone.mp3 c.mp3");
  EXPECT_EQ(document_.WorkFolder, "c:\\one");
  EXPECT_FALSE(document_.PlaylistChanged);
}

TEST_F(Replacing, TellsWhatCannotBeAddedAndKeepsTheOldRow) {
  dialogs_.open_names = {"c:\\note.txt"};
  EXPECT_TRUE(Replace());
  EXPECT_EQ(Names(), "a.mp3 gone.mp3 c.mp3");
  ASSERT_EQ(dialogs_.messages.size(), 1U);
  EXPECT_EQ(dialogs_.messages[0], (ScriptedDialogs::Message{"Unable to add a reference to this file..",
                                                            MessageIcon::kStop, MessageButtons::kOk}));
  EXPECT_EQ(document_.WorkFolder, "c:\\note.txt");
}

TEST_F(Replacing, TakesTheItemsOfAPlaylist) {
  drives_.Write("two.m3u", "new\\b.mp3\r\none\\c.mp3\r\n");
  dialogs_.open_names = {"c:\\two.m3u"};
  EXPECT_TRUE(Replace());
  EXPECT_EQ(Names(), "a.mp3 b.mp3 c.mp3 c.mp3");
  EXPECT_EQ(Selection(), "-xx-");
}

TEST_F(Replacing, TheLastRowWorksToo) {
  Rows().SetSelected(2, false);
  SelectRows({3});
  dialogs_.open_names = {"c:\\new\\b.mp3"};
  EXPECT_TRUE(Replace());
  EXPECT_EQ(Names(), "a.mp3 gone.mp3 b.mp3");
}

TEST_F(Replacing, TakesTheOneSelectedRowWhereverTheFocusIs) {
  Rows().SetFocusedRow(3);
  dialogs_.open_names = {"c:\\new\\b.mp3"};
  EXPECT_TRUE(Replace());
  EXPECT_EQ(dialogs_.open_requests[0].file_name, "gone.mp3");
  EXPECT_EQ(Names(), "a.mp3 b.mp3 c.mp3");
}

TEST_F(Replacing, TakesTheFocusedRowWhereNotExactlyOneIsSelected) {
  SelectRows({1, 3});
  dialogs_.open_names = {"c:\\new\\b.mp3"};
  EXPECT_TRUE(Replace());
  EXPECT_EQ(Names(), "a.mp3 b.mp3 c.mp3");
}

TEST_F(Replacing, WithoutASelectedOrFocusedRowAsksNothing) {
  Rows().SetSelected(2, false);
  Rows().SetFocusedRow(0);
  EXPECT_FALSE(Replace());
  EXPECT_TRUE(dialogs_.open_requests.empty());
}

}  // namespace
}  // namespace qublet

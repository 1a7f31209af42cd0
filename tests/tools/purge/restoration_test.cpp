#include "tools/purge/restoration.h"

#include <gtest/gtest.h>

#include "support/ordinary_user.h"
#include "support/purge_test_base.h"
#include "support/tag_bytes.h"

namespace qublet {
namespace {

class RestorationTest : public PurgeTestBase {
 protected:
  // Rows of these paths, all of them missing, and the search of all drives for them.
  Restoration& Search(const Collection& paths, bool UseFolderInfo = false, const char* drives = "cd") {
    for (const std::string& path : paths) {
      const std::size_t name = path.rfind('\\') + 1;
      AddRow(path.substr(0, name), path.substr(name));
    }
    engine_.document.PlaylistChanged = false;
    restoration_.emplace(engine_, paths, UseFolderInfo);
    for (const char* drive = drives; *drive != '\0'; ++drive)
      restoration_->SearchDrive(std::string(1, *drive) + ":\\");
    return *restoration_;
  }
  Collection FoldersOf(int n) const { return restoration_->ShowMissingFolder(n).FoundPaths; }
  int Choose(int n, const std::string& folder) { return restoration_->ApplyFoundFolder(n, {{folder, true, false}}); }

  std::optional<Restoration> restoration_;
};

TEST_F(RestorationTest, FindsANameOnEveryDriveInTheirOrder) {
  Touch({"new/a.mp3", "Also/a.mp3"});
  TouchOn('d', {"a.mp3"});
  EXPECT_EQ(Search({"c:\\old\\a.mp3"}).FoundCount(), 3u);
  EXPECT_EQ(FoldersOf(1), (Collection{"c:\\Also\\", "c:\\new\\", "d:\\"}));
}

TEST_F(RestorationTest, ANameThatIsMissingTwiceIsFoundTwice) {
  Touch({"new/a.mp3"});
  EXPECT_EQ(Search({"c:\\old\\a.mp3", "c:\\older\\a.mp3"}).FoundCount(), 2u);
  EXPECT_EQ(FoldersOf(1), Collection{"c:\\new\\"});
}

TEST_F(RestorationTest, SearchesNothingWithoutARootOrMissingPaths) {
  Touch({"new/a.mp3"});
  Search({"c:\\old\\a.mp3"}, false, "");
  restoration_->SearchDrive("");
  EXPECT_EQ(restoration_->FoundCount(), 0u);
  Restoration none(engine_, {}, false);
  none.SearchDrive("c:\\");
  EXPECT_EQ(none.FoundCount(), 0u);
  EXPECT_EQ(none.FolderCount(), 0);
  EXPECT_TRUE(feedback_.activities.empty());
}

TEST_F(RestorationTest, WithFoldersTheTailOfTheOldPathIsLookedFor) {
  Touch({"backup/music/a.mp3", "a.mp3"});
  TouchOn('d', {"music/a.mp3"});
  EXPECT_EQ(Search({"c:\\music\\a.mp3"}, true).FoundCount(), 2u);
  // The old drive is part of what a suggestion has to hold.
  EXPECT_EQ(FoldersOf(1), Collection{});
}

TEST_F(RestorationTest, WithFoldersARelativePathProfits) {
  Touch({"backup/music/a.mp3", "a.mp3"});
  TouchOn('d', {"music/a.mp3", "music/b.mp3"});
  EXPECT_EQ(Search({"music\\a.mp3", "music\\b.mp3"}, true).FoundCount(), 3u);
  EXPECT_EQ(FoldersOf(1), (Collection{"c:\\backup\\music\\", "d:\\music\\"}));
  EXPECT_EQ(Choose(1, "d:\\music\\"), 2);
  EXPECT_EQ(Paths(), "d:\\music\\a.mp3|d:\\music\\b.mp3");
}

TEST_F(RestorationTest, WithFoldersTheDriveGoesWithASlashBehindIt) {
  Touch({"x/b.mp3"});
  Search({"c:\\\\x\\b.mp3", "c:", "e:x"}, true);
  EXPECT_EQ(restoration_->FoundCount(), 1u);
}

TEST_F(RestorationTest, StepsGoByRunsOfFolders) {
  Touch({"new/1.mp3"});
  Search({"c:\\a\\1.mp3", "c:\\a\\2.mp3", "c:\\b\\1.mp3", "c:\\a\\3.mp3"});
  EXPECT_EQ(restoration_->FolderCount(), 3);
  EXPECT_EQ(restoration_->ShowMissingFolder(1).MissingPath, "c:\\a\\1.mp3");
  EXPECT_EQ(restoration_->ShowMissingFolder(2).MissingPath, "c:\\b\\1.mp3");
  EXPECT_EQ(restoration_->ShowMissingFolder(3).MissingPath, "c:\\a\\1.mp3");
}

TEST_F(RestorationTest, TheFirstFileStandsForItsFolder) {
  Touch({"one/1.mp3", "two/2.mp3"});
  Search({"c:\\a\\1.mp3", "c:\\a\\2.mp3"});
  EXPECT_EQ(FoldersOf(1), Collection{"c:\\one\\"});
}

TEST_F(RestorationTest, WhatHoldsTheNameSomewhereIsSuggested) {
  Touch({"x/my song.mp3", "x/song.mp3", "song.mp3 of old/other.mp3"});
  Search({"c:\\a\\song.mp3", "c:\\b\\other.mp3", "c:\\b\\my song.mp3"});
  EXPECT_EQ(FoldersOf(1), (Collection{"c:\\song.mp3 of old\\", "c:\\x\\"}));
}

TEST_F(RestorationTest, RestoresEveryMissingFileOfTheFolder) {
  Touch({"new/1.mp3", "new/2.ogg", "new/4.mp3", "new/5.txt"});
  Search({"c:\\a\\1.mp3", "c:\\b\\1.mp3", "c:\\a\\2.ogg", "c:\\a\\3.mp3", "c:\\a\\5.txt"});
  EXPECT_EQ(Choose(1, "c:\\new\\"), 2);
  EXPECT_EQ(Paths(), "c:\\new\\1.mp3|c:\\b\\1.mp3|c:\\new\\2.ogg|c:\\a\\3.mp3|c:\\a\\5.txt");
  EXPECT_TRUE(engine_.document.PlaylistChanged);
  EXPECT_EQ(Choose(2, "c:\\new\\"), 1);
  EXPECT_EQ(Choose(3, "c:\\new\\"), 0);
  EXPECT_EQ(Paths(), "c:\\new\\1.mp3|c:\\new\\1.mp3|c:\\new\\2.ogg|c:\\a\\3.mp3|c:\\a\\5.txt");
}

TEST_F(RestorationTest, AFreshRowIsReadAnewAndTakesTheNumberOfItsPlace) {
  drives_.Write("new/a.mp3", AudioBytes(20));
  AddPaths({"c:\\x.mp3"});
  Search({"c:\\old\\a.mp3"});
  EXPECT_EQ(Choose(1, "c:\\new\\"), 1);
  const Row& row = Rows().At(2);
  EXPECT_EQ(row.icon, RowIcon::kNormal);
  EXPECT_FALSE(row.ghosted);
  EXPECT_EQ(row.cells[kOriginalOrder], "2");
  EXPECT_NE(row.cells[kHiddenSize], "");
}

TEST_F(RestorationTest, EachRowOfAPathIsRestored) {
  Touch({"new/a.mp3"});
  Search({"c:\\old\\a.mp3", "c:\\old\\a.mp3"});
  EXPECT_EQ(Choose(1, "c:\\new\\"), 2);
  EXPECT_EQ(Paths(), "c:\\new\\a.mp3|c:\\new\\a.mp3");
}

TEST_F(RestorationTest, NamesMustBeEqualToTheLetter) {
  Touch({"new/A.mp3", "new/b.mp3"});
  Search({"c:\\old\\a.mp3", "c:\\old\\b.mp3"});
  EXPECT_EQ(Choose(1, "c:\\new\\"), 1);
  EXPECT_EQ(Paths(), "c:\\old\\a.mp3|c:\\new\\b.mp3");
  EXPECT_EQ(restoration_->HeldOf(1, "c:\\new\\"), "1 of 2");
}

TEST_F(RestorationTest, ATickedFolderGivesAllItsAudioFilesToTheEnd) {
  Touch({"new/a.mp3", "more/z.mp3", "more/b.mp3", "more/c.ogg", "more/d.txt", "more/sub/e.mp3"});
  Search({"c:\\old\\a.mp3"});
  EXPECT_EQ(restoration_->ApplyFoundFolder(1, {{"c:\\more\\", false, true}, {"c:\\new\\", true, true}}), 1);
  EXPECT_EQ(Paths(), "c:\\new\\a.mp3|c:\\more\\b.mp3|c:\\more\\z.mp3|c:\\more\\c.ogg");
}

TEST_F(RestorationTest, ATickAloneChangesTheList) {
  Touch({"more/b.mp3"});
  Search({"c:\\old\\a.mp3"});
  EXPECT_EQ(restoration_->ApplyFoundFolder(1, {{"c:\\more\\", false, true}}), 0);
  EXPECT_EQ(Paths(), "c:\\old\\a.mp3|c:\\more\\b.mp3");
  EXPECT_TRUE(engine_.document.PlaylistChanged);
}

TEST_F(RestorationTest, NothingChosenChangesNothing) {
  Touch({"new/a.mp3"});
  Search({"c:\\old\\a.mp3"});
  EXPECT_EQ(restoration_->ApplyFoundFolder(1, {{"c:\\new\\", false, false}}), 0);
  EXPECT_EQ(restoration_->ApplyFoundFolder(1, {}), 0);
  EXPECT_FALSE(engine_.document.PlaylistChanged);
}

TEST_F(RestorationTest, TheFocusAndTheOtherRowsStayWhereTheyAre) {
  Touch({"new/a.mp3"});
  Search({"c:\\x\\1.mp3", "c:\\old\\a.mp3", "c:\\x\\2.mp3"});
  Select("x-x");
  for (const int focused : {1, 2, 3}) {
    Rows().SetFocusedRow(focused);
    Choose(2, "c:\\new\\");
    EXPECT_EQ(Rows().FocusedRow(), focused);
  }
  EXPECT_EQ(Selection(), "x-x");
}

TEST_F(RestorationTest, AFullListIsRestoredAsWell) {
  Touch({"new/a.mp3", "new/b.mp3"});
  Rows().Insert(1, std::vector<Row>(RowStore::MaxRows - 1, NamedRow("x")));
  Search({"c:\\old\\a.mp3"});
  EXPECT_EQ(restoration_->ApplyFoundFolder(1, {{"c:\\new\\", true, false}, {"c:\\new\\", false, true}}), 1);
  EXPECT_EQ(Rows().Count(), RowStore::MaxRows);
  EXPECT_EQ(Rows().At(RowStore::MaxRows).FullPath(), "c:\\new\\a.mp3");
}

TEST_F(RestorationTest, CountsTheMissingFilesThatAFolderHolds) {
  Touch({"new/1.mp3", "new/2.mp3", "new/x.mp3", "new/3.mp3/folder"});
  Search({"c:\\a\\1.mp3", "c:\\b\\9.mp3", "c:\\a\\2.mp3", "c:\\a\\3.mp3", "c:\\a\\2.mp3"});
  EXPECT_EQ(restoration_->HeldOf(1, "c:\\new\\"), "2 of 3");
  EXPECT_EQ(restoration_->HeldOf(2, "c:\\new\\"), "0 of 1");
  EXPECT_EQ(restoration_->HeldOf(1, "c:\\nowhere\\"), "0 of 3");
}

TEST_F(RestorationTest, HintsAtAFileThatDiffersInCaseOrAccents) {
  Touch({"new/SONG.mp3", "new/cafe\u0301.mp3", "new/both.mp3", "z/BOTH.mp3"});
  Search({"c:\\a\\song.mp3", "c:\\b\\caf\u00E9.mp3", "c:\\c\\both.mp3", "c:\\d\\gone.mp3"});
  const std::size_t found = files_->Attributes("c:\\new\\song.mp3") ? 3 : 1;
  EXPECT_EQ(restoration_->FoundCount(), found);
  EXPECT_EQ(restoration_->ShowMissingFolder(2).similar, "c:\\new\\cafe\u0301.mp3");
  EXPECT_EQ(restoration_->ShowMissingFolder(3).similar, "");
  EXPECT_EQ(restoration_->ShowMissingFolder(4).similar, "");
}

TEST_F(RestorationTest, AHintIsNoSuggestion) {
  Touch({"new/caf\u00E9.mp3"});
  Search({"c:\\a\\cafe\u0301.mp3"});
  const Restoration::Step step = restoration_->ShowMissingFolder(1);
  EXPECT_EQ(restoration_->FoundCount(), 0u);
  EXPECT_TRUE(step.FoundPaths.empty());
  EXPECT_EQ(step.similar, "c:\\new\\caf\u00E9.mp3");
}

TEST_F(RestorationTest, WhereCaseCountsAFileOfAnotherCaseIsAHint) {
  Touch({"new/SONG.mp3"});
  Search({"c:\\a\\song.mp3"});
  EXPECT_EQ(restoration_->FoundCount(), 0u);
  EXPECT_EQ(restoration_->ShowMissingFolder(1).similar, "c:\\new\\SONG.mp3");
}

TEST_F(RestorationTest, NamesMayHoldAnything) {
  const std::string longest(251, 'x');
  const Collection names = {"[a].mp3", "caf\u00E9.mp3", longest + ".mp3"};
  Collection paths;
  for (const std::string& name : names) {
    Touch({"new/" + name});
    paths.push_back("c:\\old\\" + name);
  }
  Search(paths);
  EXPECT_EQ(Choose(1, "c:\\new\\"), 3);
  EXPECT_EQ(Paths(), "c:\\new\\[a].mp3|c:\\new\\caf\u00E9.mp3|c:\\new\\" + longest + ".mp3");
}

TEST_F(RestorationTest, NamesMayHoldStarsAndLineBreaks) {
  Touch({"new/a*?.mp3", "new/two\nlines.mp3", "new/ab.mp3"});
  Collection paths;
  ListFolderFiles(*files_, "c:\\new", "*.mp3", paths);
  for (std::string& path : paths) path.replace(3, 3, "old");
  Search(paths);
  EXPECT_EQ(restoration_->FoundCount(), 3u);
  EXPECT_EQ(Choose(1, "c:\\new\\"), 3);
  EXPECT_EQ(drives_.Read("new/two\nlines.mp3"), "abc");
}

TEST_F(RestorationTest, ANameThatItsFolderHoldsToo) {
  Touch({"new/a.mp3"});
  Search({"c:\\a.mp3\\a.mp3", "c:\\old\\a.mp3"});
  EXPECT_EQ(restoration_->ShowMissingFolder(1).MissingPath, "c:\\\\a.mp3");
  EXPECT_EQ(Choose(1, "c:\\new\\"), 0);
  EXPECT_EQ(Choose(2, "c:\\new\\"), 1);
}

TEST_F(RestorationTest, FoldersWithoutRightsArePassedOver) {
  Touch({"new/a.mp3", "locked/a.mp3"});
  std::filesystem::permissions(drives_.C() / "locked", std::filesystem::perms(0));
  const OrdinaryUser user(drives_.Root());
  Search({"c:\\old\\a.mp3"});
  EXPECT_EQ(FoldersOf(1), Collection{"c:\\new\\"});
  std::filesystem::permissions(drives_.C() / "locked", std::filesystem::perms(0700));
}

TEST_F(RestorationTest, AFolderThatGoesAwayBeforeItIsChosenGivesNothing) {
  Touch({"new/a.mp3"});
  Search({"c:\\old\\a.mp3"});
  std::filesystem::remove_all(drives_.C() / "new");
  EXPECT_EQ(Choose(1, "c:\\new\\"), 0);
  EXPECT_EQ(restoration_->ApplyFoundFolder(1, {{"c:\\new\\", false, true}}), 0);
  EXPECT_EQ(Paths(), "c:\\old\\a.mp3");
}

TEST_F(RestorationTest, AThousandFoldersWithTheSameNamesStayCheap) {
  Collection paths;
  for (int folder = 0; folder < 300; ++folder) {
    for (const char* name : {"01.mp3", "02.mp3", "03.mp3", "04.mp3"}) {
      Touch({"new/" + std::to_string(folder) + "/" + name});
      paths.push_back("e:\\old\\" + std::to_string(folder) + "\\" + name);
    }
  }
  Search(paths);
  EXPECT_EQ(restoration_->FoundCount(), 300u * 300u * 4u);
  EXPECT_EQ(restoration_->FolderCount(), 300);
  EXPECT_EQ(FoldersOf(300).size(), 300u);
}

}  // namespace
}  // namespace qublet

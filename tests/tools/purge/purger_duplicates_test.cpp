#include <gtest/gtest.h>

#include "support/purge_test_base.h"
#include "tools/purge/duplicates.h"

namespace qublet {
namespace {

class PurgerDuplicatesTest : public PurgeTestBase {
 protected:
  void SetUp() override {
    PurgeTestBase::SetUp();
    purger_.view.EnbPurge = false;
    purger_.view.EnbDuplicate = true;
  }
  void Process(DuplicateKey base, DuplicateAction action) {
    purger_.view.DupBase = static_cast<int>(base);
    purger_.view.DupAction = static_cast<int>(action);
    PurgeTestBase::Process();
  }
};

TEST_F(PurgerDuplicatesTest, StartsWithTheDescribedChoice) {
  const FilterView view;
  EXPECT_FALSE(view.EnbDuplicate);
  EXPECT_EQ(view.DupBase, 2);
  EXPECT_EQ(view.DupAction, 3);
  EXPECT_FALSE(view.DupCase);
}

TEST_F(PurgerDuplicatesTest, OneNameInTwoFoldersIsADuplicateByNameOnly) {
  AddPaths({"c:\\a\\1.mp3", "c:\\b\\1.mp3"});
  Process(DuplicateKey::kPath, DuplicateAction::kRemoveButFirst);
  EXPECT_EQ(Report(), "Done: No Duplicate Items were found.");
  EXPECT_FALSE(engine_.document.PlaylistChanged);
  Process(DuplicateKey::kName, DuplicateAction::kRemoveButFirst);
  EXPECT_EQ(Report(), "Done: Removed 1 Duplicate Items");
  EXPECT_EQ(Paths(), "c:\\a\\1.mp3");
  EXPECT_TRUE(engine_.document.PlaylistChanged);
}

TEST_F(PurgerDuplicatesTest, SelectsThreeOfThreeOrTwo) {
  AddPaths({"c:\\x.mp3", "c:\\a.mp3", "c:\\y.mp3", "c:\\a.mp3", "c:\\a.mp3"});
  Select("x----");
  Process(DuplicateKey::kPath, DuplicateAction::kSelectAll);
  EXPECT_EQ(Selection(), "-x-xx");
  EXPECT_EQ(Report(), "Done: Selected 3 Duplicate Items");
  EXPECT_EQ(Rows().FocusedRow(), 5);
  Process(DuplicateKey::kPath, DuplicateAction::kSelectButFirst);
  EXPECT_EQ(Selection(), "---xx");
  EXPECT_EQ(Report(), "Done: Selected 2 Duplicate Items");
  EXPECT_FALSE(engine_.document.PlaylistChanged);
}

TEST_F(PurgerDuplicatesTest, RemovesAllOfARun) {
  AddPaths({"c:\\x.mp3", "c:\\a.mp3", "c:\\y.mp3", "c:\\a.mp3", "c:\\a.mp3"});
  Process(DuplicateKey::kPath, DuplicateAction::kRemoveAll);
  EXPECT_EQ(Paths(), "c:\\x.mp3|c:\\y.mp3");
  EXPECT_EQ(Report(), "Done: Removed 3 Duplicate Items");
}

TEST_F(PurgerDuplicatesTest, TheTickedBoxIsTheOneThatIgnoresCase) {
  AddPaths({"c:\\A.mp3", "c:\\a.mp3"});
  Process(DuplicateKey::kName, DuplicateAction::kSelectAll);
  EXPECT_EQ(Selection(), "--");
  purger_.view.DupCase = true;
  Process(DuplicateKey::kName, DuplicateAction::kSelectAll);
  EXPECT_EQ(Selection(), "xx");
}

TEST_F(PurgerDuplicatesTest, ByFolderOneRowAFolderStays) {
  AddPaths({"c:\\a\\1.mp3", "c:\\b\\1.mp3", "c:\\a\\2.mp3", "c:\\b\\2.mp3", "c:\\a\\3.mp3"});
  Process(DuplicateKey::kFolder, DuplicateAction::kRemoveButFirst);
  EXPECT_EQ(Paths(), "c:\\a\\1.mp3|c:\\b\\1.mp3");
}

TEST_F(PurgerDuplicatesTest, NothingStaysSelectedWhereNothingIsFound) {
  AddPaths({"c:\\a.mp3", "c:\\b.mp3"});
  Select("xx");
  Process(DuplicateKey::kPath, DuplicateAction::kRemoveAll);
  EXPECT_EQ(Selection(), "--");
  EXPECT_EQ(Rows().Count(), 2);
}

TEST_F(PurgerDuplicatesTest, AnEmptyListHasNone) {
  Process(DuplicateKey::kPath, DuplicateAction::kRemoveAll);
  EXPECT_EQ(Report(), "Done: No Duplicate Items were found.");
  EXPECT_FALSE(engine_.document.PlaylistChanged);
}

TEST_F(PurgerDuplicatesTest, ShowsItsSteps) {
  AddPaths({"c:\\a.mp3", "c:\\a.mp3"});
  Process(DuplicateKey::kPath, DuplicateAction::kSelectAll);
  EXPECT_EQ(bars_, (std::vector<std::string>{"1/7", "2/7", "3/7", "4/7", "0/7"}));
  EXPECT_EQ(reports_.size(), 3u);
  EXPECT_EQ(reports_[1], "Checking for Duplicate Items...");
  EXPECT_EQ(feedback_.waits, 0);
}

TEST_F(PurgerDuplicatesTest, AFullListTakesNoLongerThanItMust) {
  std::vector<Row> rows;
  for (int i = 0; i < RowStore::MaxRows; ++i) rows.push_back(NamedRow(std::to_string(i / 2) + ".mp3"));
  Rows().Insert(1, std::move(rows));
  Process(DuplicateKey::kPath, DuplicateAction::kRemoveButFirst);
  EXPECT_EQ(Report(), "Done: Removed 16383 Duplicate Items");
  EXPECT_EQ(Rows().Count(), 16384);
}

}  // namespace
}  // namespace qublet

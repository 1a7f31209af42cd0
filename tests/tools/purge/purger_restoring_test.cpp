#include <gtest/gtest.h>

#include "support/purge_test_base.h"

namespace qublet {
namespace {

constexpr const char* kNone = "Done: No items were restored...";

class PurgerRestoringTest : public PurgeTestBase {
 protected:
  void SetUp() override {
    PurgeTestBase::SetUp();
    purger_.view.MissAction = static_cast<int>(MissingAction::kSearch);
  }
  void Next() { purger_.NxtPath_Click(); }
  FilterView& View() { return purger_.view; }
};

TEST_F(PurgerRestoringTest, TheFirstTextIsThatOfAnAbortedRestoration) {
  purger_.Activate();
  EXPECT_EQ(Report(), kNone);
  EXPECT_FALSE(View().stepping);
}

TEST_F(PurgerRestoringTest, FindsNothing) {
  AddPaths({"c:\\old\\a.mp3", "c:\\old\\b.mp3"});
  Process();
  EXPECT_EQ(Report(), "No Items were found to match...");
  EXPECT_EQ(std::ranges::count(reports_, "Searching for 2 Missing Items..."), 1);
  EXPECT_FALSE(View().stepping);
  EXPECT_TRUE(View().CanSearch());
  EXPECT_FALSE(could_search_);
}

TEST_F(PurgerRestoringTest, AHintAloneEndsTheSearchAsDescribed) {
  Touch({"new/caf\u00E9.mp3"});
  AddPaths({"c:\\old\\cafe\u0301.mp3"});
  Process();
  EXPECT_EQ(Report(), "No Items were found to match...");
  EXPECT_FALSE(View().stepping);
}

TEST_F(PurgerRestoringTest, SearchesTheDrivesFromAToZ) {
  drives_.AddDrive('x');
  AddPaths({"c:\\old\\a.mp3"});
  TouchOn('d', {"new/a.mp3"});
  Process();
  std::vector<std::string> bars;
  for (int i = 0; i <= 7; ++i) bars.push_back(std::to_string(i) + "/7");
  for (int i = 1; i <= 18; ++i) bars.push_back(std::to_string(i) + "/18");
  bars.emplace_back("0/18");
  bars_.erase(bars_.begin());  // before the search
  EXPECT_EQ(bars_, bars);
}

TEST_F(PurgerRestoringTest, GoesThroughTheFolders) {
  Touch({"new/1.mp3", "new/2.mp3", "else/9.mp3"});
  TouchOn('d', {"copy/1.mp3"});
  AddPaths({"c:\\a\\1.mp3", "c:\\a\\2.mp3", "c:\\b\\9.mp3"});
  Process();
  EXPECT_EQ(Report(), "4 Items were returned by the Search...");
  EXPECT_TRUE(View().stepping);
  EXPECT_FALSE(View().CanSearch());
  EXPECT_EQ(View().MissingPath, "c:\\a\\1.mp3");
  EXPECT_EQ(Suggestions(), ">c:\\new\\ 2 of 2|d:\\copy\\ 1 of 2");
  Next();
  EXPECT_EQ(Paths(), "c:\\new\\1.mp3|c:\\new\\2.mp3|c:\\b\\9.mp3");
  EXPECT_EQ(View().MissingPath, "c:\\b\\9.mp3");
  EXPECT_EQ(Suggestions(), ">c:\\else\\ 1 of 1");
  Next();
  EXPECT_EQ(Paths(), "c:\\new\\1.mp3|c:\\new\\2.mp3|c:\\else\\9.mp3");
  EXPECT_EQ(Report(), "Done: Restored 3 Items...");
  EXPECT_FALSE(View().stepping);
  EXPECT_TRUE(View().CanSearch());
  EXPECT_EQ(View().MissingPath, "");
  EXPECT_EQ(Suggestions(), "");
  EXPECT_TRUE(engine_.document.PlaylistChanged);
}

TEST_F(PurgerRestoringTest, AnotherFolderCanBeChosenAndTicked) {
  Touch({"new/1.mp3", "new/2.mp3"});
  TouchOn('d', {"copy/1.mp3", "copy/3.mp3"});
  AddPaths({"c:\\a\\1.mp3", "c:\\a\\2.mp3"});
  Process();
  View().selected = 1;
  View().FoundPaths[0].ticked = true;
  Next();
  EXPECT_EQ(Paths(), "d:\\copy\\1.mp3|c:\\a\\2.mp3|c:\\new\\1.mp3|c:\\new\\2.mp3");
  EXPECT_EQ(Report(), "Done: Restored 1 Items...");
}

TEST_F(PurgerRestoringTest, AStepWithoutSuggestionsAppliesNothingAndMovesOn) {
  Touch({"new/2.mp3", "x/3.mp3", "x/caf\u00E9.mp3"});
  AddPaths({"c:\\a\\cafe\u0301.mp3", "c:\\a\\2.mp3", "c:\\b\\3.mp3"});
  Process();
  EXPECT_EQ(View().MissingPath, "c:\\a\\cafe\u0301.mp3");
  EXPECT_EQ(View().FoundPaths.size(), 0u);
  EXPECT_EQ(View().similar, "c:\\x\\caf\u00E9.mp3");
  Next();
  EXPECT_EQ(View().MissingPath, "c:\\b\\3.mp3");
  EXPECT_EQ(View().similar, "");
  EXPECT_EQ(Paths(), "c:\\a\\cafe\u0301.mp3|c:\\a\\2.mp3|c:\\b\\3.mp3");
  EXPECT_FALSE(engine_.document.PlaylistChanged);
}

TEST_F(PurgerRestoringTest, RowsOfAnotherFolderBetweenMakeTwoSteps) {
  Touch({"new/1.mp3"});
  AddPaths({"c:\\a\\1.mp3", "c:\\b\\1.mp3", "c:\\b\\2.mp3", "c:\\a\\3.mp3"});
  Process();
  std::string shown = View().MissingPath;
  for (int step = 0; step < 2; ++step) {
    purger_.SkipPath_Click();
    shown += "|" + View().MissingPath;
  }
  EXPECT_EQ(shown, "c:\\a\\1.mp3|c:\\b\\1.mp3|c:\\a\\1.mp3");
}

TEST_F(PurgerRestoringTest, SkippingLeavesAFolderAsItIsAndTheLastOneEnds) {
  Touch({"new/1.mp3"});
  AddPaths({"c:\\a\\1.mp3", "c:\\b\\1.mp3", "c:\\c\\1.mp3"});
  Process();
  purger_.SkipPath_Click();
  Next();
  EXPECT_EQ(View().MissingPath, "c:\\c\\1.mp3");
  purger_.SkipPath_Click();
  EXPECT_EQ(Paths(), "c:\\a\\1.mp3|c:\\new\\1.mp3|c:\\c\\1.mp3");
  EXPECT_EQ(Report(), "Done: Restored 1 Items...");
  EXPECT_FALSE(View().stepping);
}

TEST_F(PurgerRestoringTest, AbortEndsWithTheCountSoFar) {
  Touch({"new/1.mp3"});
  AddPaths({"c:\\a\\1.mp3", "c:\\b\\1.mp3"});
  Process();
  Next();
  purger_.AbortPath_Click();
  EXPECT_EQ(Report(), "Done: Restored 1 Items...");
  EXPECT_FALSE(View().stepping);
  EXPECT_TRUE(View().CanSearch());
  EXPECT_TRUE(View().FoundPaths.empty());
  EXPECT_EQ(Paths(), "c:\\new\\1.mp3|c:\\b\\1.mp3");
  Process();
  purger_.AbortPath_Click();
  EXPECT_EQ(Report(), kNone);
}

TEST_F(PurgerRestoringTest, ClosingAbortsAndRefreshesTheMainWindow) {
  Touch({"new/1.mp3"});
  AddPaths({"c:\\a\\1.mp3"});
  Process();
  window_.shown.clear();
  purger_.Close();
  EXPECT_EQ(Report(), kNone);
  EXPECT_FALSE(View().stepping);
  EXPECT_EQ(window_.shown, std::vector<std::string>{"click"});
  Next();
  EXPECT_EQ(Paths(), "c:\\a\\1.mp3");
}

TEST_F(PurgerRestoringTest, ComingBackAbortsAndKeepsTheChoices) {
  Touch({"new/1.mp3"});
  AddPaths({"c:\\a\\1.mp3", "c:\\b\\1.mp3"});
  Process();
  Next();
  purger_.Activate();
  EXPECT_EQ(Report(), "Done: Restored 1 Items...");
  EXPECT_FALSE(View().stepping);
  EXPECT_EQ(View().MissAction, 2);
  purger_.Activate();
  EXPECT_EQ(Report(), kNone);
}

TEST_F(PurgerRestoringTest, EscapeKeepsWhatWasFound) {
  Touch({"a/1.mp3", "b/1.mp3", "c/1.mp3"});
  TouchOn('d', {"1.mp3"});
  AddPaths({"c:\\old\\1.mp3"});
  feedback_.stop_at = "c:\\b";
  Process();
  EXPECT_EQ(Report(), "2 Items were returned by the Search...");
  EXPECT_EQ(Suggestions(), ">c:\\a\\ 1 of 1|c:\\b\\ 1 of 1");
  EXPECT_EQ(std::ranges::count(feedback_.activities, "d:\\"), 0);
  Next();
  EXPECT_EQ(Paths(), "c:\\a\\1.mp3");
}

TEST_F(PurgerRestoringTest, ShowsTheFolderThatIsSearched) {
  Touch({"m/x"});
  AddPaths({"c:\\old\\1.mp3"});
  Process();
  EXPECT_EQ(std::ranges::count(feedback_.activities, "c:\\m"), 1);
  EXPECT_EQ(feedback_.activities.back(), "");
}

TEST_F(PurgerRestoringTest, UsesTheFoldersWhereTheyArentExcluded) {
  Touch({"backup/music/1.mp3", "1.mp3"});
  AddRow("music\\", "1.mp3");
  View().DontUsePath = false;
  Process();
  EXPECT_EQ(Suggestions(), ">c:\\backup\\music\\ 1 of 1");
  purger_.AbortPath_Click();
  View().DontUsePath = true;
  Process();
  EXPECT_EQ(Suggestions(), ">c:\\ 1 of 1|c:\\backup\\music\\ 1 of 1");
}

TEST_F(PurgerRestoringTest, ADoubleClickOpensTheFolder) {
  Touch({"new/1.mp3"});
  AddPaths({"c:\\a\\1.mp3"});
  Process();
  for (const int row : {0, 1, -1}) purger_.FoundPaths_DblClick(row);
  EXPECT_EQ(fakes_.shell.explored, std::vector<std::string>{"c:\\new\\"});
  EXPECT_TRUE(View().stepping);
}

}  // namespace
}  // namespace qublet

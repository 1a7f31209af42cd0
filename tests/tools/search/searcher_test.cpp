#include "tools/search/searcher.h"

#include <gtest/gtest.h>

#include "support/editor_test_base.h"
#include "support/row_texts.h"

namespace qublet {
namespace {

// The search window without its window, over five rows of which three hold an "a".
class SearcherTest : public EditorTestBase {
 protected:
  SearcherTest() { Rows().Insert(1, NamedRows({"a1", "b1", "A2", "b2", "xa3"})); }

  void Search(const std::string& text) { searcher_.txtSearch_Change(text); }
  const SearchView& View() const { return searcher_.view; }

  Searcher searcher_{engine_};
};

TEST_F(SearcherTest, BeginsWithItsCaptionAndNothingToGoOnWith) {
  searcher_.Activate();
  EXPECT_EQ(View().caption, "Search Playlist...");
  EXPECT_FALSE(View().usable);
  EXPECT_TRUE(View().history.empty());
  EXPECT_FALSE(View().options.Mselonly);
  EXPECT_FALSE(View().options.Mcasesensitive);
  EXPECT_TRUE(View().Mkeepalive);
  EXPECT_EQ(View().options.columns, (std::array{true, true, false, false, false, false, false, false, false}));
}

TEST_F(SearcherTest, CanBeUsedOnceThereIsAText) {
  Search("a");
  EXPECT_TRUE(View().usable);
  Search("");
  EXPECT_FALSE(View().usable);
}

TEST_F(SearcherTest, SelectsAllItFindsAndNothingElse) {
  Select("-x---");
  Search("a");
  searcher_.cmdSelAl_Click();
  EXPECT_EQ(Selection(), "x-x-x");
  EXPECT_EQ(View().caption, "Found: 3 Items.");
  EXPECT_TRUE(View().usable);
}

TEST_F(SearcherTest, LeavesTheSelectionWhenItFindsNothing) {
  Select("-x---");
  Search("z");
  searcher_.cmdSelAl_Click();
  EXPECT_EQ(Selection(), "-x---");
  EXPECT_EQ(View().caption, "Found: 0 Items.");
  EXPECT_FALSE(View().usable);
  EXPECT_TRUE(View().history.empty());
}

TEST_F(SearcherTest, AsksForATextWhenThereIsNone) {
  Select("-x---");
  searcher_.cmdSelAl_Click();
  EXPECT_EQ(View().caption, "Enter a search string...");
  EXPECT_EQ(Selection(), "-x---");
}

TEST_F(SearcherTest, StaysToBeRunAfterAnEmptySearch) {
  searcher_.cmdSelAl_Click();
  searcher_.view.caption = "";
  searcher_.cmdNext_Click();
  EXPECT_EQ(View().caption, "Enter a search string...") << "it ran again";
}

TEST_F(SearcherTest, ForgetsItsHitsWithTheText) {
  Search("a");
  searcher_.cmdSelAl_Click();
  Search("");
  searcher_.cmdNext_Click();
  EXPECT_EQ(View().caption, "Enter a search string...");
  EXPECT_EQ(Selection(), "x-x-x");
}

TEST_F(SearcherTest, StepsForwardAndBeginsAnewBehindTheLast) {
  Search("a");
  std::string steps;
  for (int step = 0; step < 4; ++step) {
    searcher_.cmdNext_Click();
    steps += View().caption + " " + Selection() + "\n";
  }
  EXPECT_EQ(steps,
            "Selected: 1/3 Items. x----\nSelected: 2/3 Items. --x--\nSelected: 3/3 Items. ----x\n"
            "Selected: 1/3 Items. x----\n");
}

TEST_F(SearcherTest, StepsBackAndEndsBeforeTheFirst) {
  Search("a");
  std::string steps;
  for (int step = 0; step < 4; ++step) {
    searcher_.cmdBack_Click();
    steps += View().caption + " " + Selection() + "\n";
  }
  EXPECT_EQ(steps,
            "Selected: 3/3 Items. ----x\nSelected: 2/3 Items. --x--\nSelected: 1/3 Items. x----\n"
            "Selected: 3/3 Items. ----x\n");
}

TEST_F(SearcherTest, ShowsTheRowItStepsTo) {
  Search("xa");
  searcher_.cmdNext_Click();
  EXPECT_EQ(Rows().FocusedRow(), 5);
}

TEST_F(SearcherTest, StepsFromTheFirstHitAfterAllWereSelected) {
  Search("a");
  searcher_.cmdNext_Click();
  searcher_.cmdNext_Click();
  searcher_.cmdSelAl_Click();
  EXPECT_EQ(View().caption, "Selected: 2/3 Items.") << "no search was needed";
  EXPECT_EQ(Selection(), "x-x-x");
  searcher_.cmdNext_Click();
  EXPECT_EQ(View().caption, "Selected: 3/3 Items.");
  Search("a");
  searcher_.cmdNext_Click();
  EXPECT_EQ(View().caption, "Selected: 1/3 Items.");
}

TEST_F(SearcherTest, SaysHowManyWereFoundWhenThereIsNothingToStepTo) {
  Search("z");
  searcher_.cmdNext_Click();
  EXPECT_EQ(View().caption, "Found: 0 Items.");
  Search("z");
  searcher_.cmdBack_Click();
  EXPECT_EQ(View().caption, "Found: 0 Items.");
  EXPECT_FALSE(View().usable);
}

TEST_F(SearcherTest, RefreshesTheWindowOnceACommand) {
  Search("a");
  window_.shown.clear();
  searcher_.cmdSelAl_Click();
  EXPECT_EQ(window_.shown, std::vector<std::string>{"click"});
  searcher_.cmdNext_Click();
  searcher_.MReselect_Click();
  EXPECT_EQ(window_.shown.size(), 3U);
}

TEST_F(SearcherTest, RemembersEachTextThatWasFoundOnce) {
  for (const char* text : {"a", "z", "b", "a", "A", "b1"}) {
    Search(text);
    searcher_.cmdNext_Click();
  }
  EXPECT_EQ(View().history, (std::vector<std::string>{"a", "b", "A", "b1"}));
}

TEST_F(SearcherTest, BeginsAnewWithEachChangeOfTheText) {
  Search("a");
  searcher_.cmdNext_Click();
  Search("b");
  EXPECT_EQ(View().caption, "Search Playlist...");
  searcher_.cmdNext_Click();
  EXPECT_EQ(View().caption, "Selected: 1/2 Items.");
  EXPECT_EQ(Selection(), "-x---");
}

TEST_F(SearcherTest, BeginsAnewWithEachChangeOfAnOption) {
  Search("a2");
  const auto after = [&](const std::function<void()>& change) {
    searcher_.cmdNext_Click();
    EXPECT_EQ(View().caption.substr(0, 9), "Selected:");
    change();
    EXPECT_EQ(View().caption, "Search Playlist...");
    EXPECT_TRUE(View().usable);
    searcher_.cmdSelAl_Click();
    return View().caption;
  };
  EXPECT_EQ(after([&] { searcher_.Mcasesensitive_Click(true); }), "Found: 0 Items.");
  searcher_.Mcasesensitive_Click(false);
  EXPECT_EQ(after([&] { searcher_.Column_Click(0, false); }), "Found: 0 Items.");
  searcher_.Column_Click(0, true);
  Select("-----");
  EXPECT_EQ(after([&] {
              searcher_.Mselonly_Click(true);
              Select("-----");
            }),
            "Found: 0 Items.");
}

TEST_F(SearcherTest, KeepsWhatWasFoundWhenOnlyKeepAliveChanges) {
  Search("a");
  searcher_.cmdNext_Click();
  searcher_.Mkeepalive_Click(false);
  EXPECT_FALSE(View().Mkeepalive);
  EXPECT_EQ(View().caption, "Selected: 1/3 Items.");
  searcher_.cmdNext_Click();
  EXPECT_EQ(View().caption, "Selected: 2/3 Items.");
}

TEST_F(SearcherTest, SearchesOnlyWhatIsSelectedWhenTold) {
  searcher_.Mselonly_Click(true);
  Search("a");
  searcher_.cmdSelAl_Click();
  EXPECT_EQ(View().caption, "Found: 0 Items.") << "nothing is selected";
  Select("xxx--");
  Search("a");
  searcher_.cmdSelAl_Click();
  EXPECT_EQ(View().caption, "Found: 2 Items.");
  EXPECT_EQ(Selection(), "x-x--");
}

TEST_F(SearcherTest, FindsNothingWithoutAColumn) {
  searcher_.Column_Click(0, false);
  searcher_.Column_Click(1, false);
  Search("a");
  searcher_.cmdNext_Click();
  EXPECT_EQ(View().caption, "Found: 0 Items.");
}

TEST_F(SearcherTest, ReselectsWhatWasSelectedWhenItCameUp) {
  Select("-x-x-");
  searcher_.Activate();
  Search("a");
  searcher_.cmdNext_Click();
  searcher_.cmdNext_Click();
  searcher_.MReselect_Click();
  EXPECT_EQ(Selection(), "-x-x-");
  EXPECT_EQ(View().caption, "Selected: 2/3 Items.");
  searcher_.cmdNext_Click();
  EXPECT_EQ(View().caption, "Selected: 1/3 Items.") << "it ran again";
}

TEST_F(SearcherTest, ReselectsWhatWasSelectedEachTimeThatItCameUp) {
  Select("-x---");
  searcher_.Activate();
  Select("---x-");
  searcher_.Activate();
  Select("x----");
  searcher_.MReselect_Click();
  EXPECT_EQ(Selection(), "-x-x-");
}

TEST_F(SearcherTest, ReselectsNothingWhenNothingWasSelected) {
  searcher_.Activate();
  Select("x----");
  searcher_.MReselect_Click();
  EXPECT_EQ(Selection(), "-----");
}

TEST_F(SearcherTest, BeginsAnewWhenItComesUpAgain) {
  Search("a");
  searcher_.cmdNext_Click();
  searcher_.Activate();
  EXPECT_EQ(View().caption, "Search Playlist...");
  EXPECT_TRUE(View().usable);
  Rows().Remove(1);
  searcher_.cmdSelAl_Click();
  EXPECT_EQ(View().caption, "Found: 2 Items.");
}

TEST_F(SearcherTest, PassesOverRowsThatAreGone) {
  Select("x---x");
  searcher_.Activate();
  Search("a");
  searcher_.cmdSelAl_Click();
  Rows().Remove(5);
  searcher_.cmdSelAl_Click();
  EXPECT_EQ(Selection(), "x-x-");
  searcher_.cmdBack_Click();
  EXPECT_EQ(View().caption, "Selected: 3/3 Items.");
  EXPECT_EQ(Selection(), "----");
  searcher_.MReselect_Click();
  EXPECT_EQ(Selection(), "x---");
}

TEST_F(SearcherTest, KeepsTheNumbersOfRowsAsTheyWereWhenFound) {
  Search("b");
  searcher_.cmdNext_Click();
  Rows().Remove(1);
  searcher_.cmdNext_Click();
  EXPECT_EQ(View().caption, "Selected: 2/2 Items.");
  EXPECT_EQ(Selection(), "---x") << "row 4, whatever it is now";
}

TEST_F(SearcherTest, PlaysWhatIsSelected) {
  for (const char* name : {"one.mp3", "two.mp3"}) drives_.Write(name, "abc");
  std::filesystem::create_directory(drives_.C() / "program");
  Rows().Clear();
  AddRows({"one.mp3", "two.mp3"});
  Search("two");
  searcher_.cmdNext_Click();
  searcher_.cmdPreview_Click();
  EXPECT_EQ(fakes_.shell.opened.size(), 1U);
  EXPECT_EQ(drives_.Read("program/tmp.m3u"), "c:\\two.mp3\r\n");
}

TEST_F(SearcherTest, ChangesNothingButTheSelection) {
  Search("a");
  searcher_.cmdSelAl_Click();
  searcher_.cmdNext_Click();
  EXPECT_FALSE(engine_.document.PlaylistChanged);
  EXPECT_EQ(NamesOf(Rows()), "a1 b1 A2 b2 xa3");
}

}  // namespace
}  // namespace qublet

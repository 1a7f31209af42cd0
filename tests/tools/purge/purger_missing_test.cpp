#include <gtest/gtest.h>

#include "support/purge_test_base.h"

namespace qublet {
namespace {

class PurgerMissingTest : public PurgeTestBase {
 protected:
  void Process(MissingAction action) {
    purger_.view.MissAction = static_cast<int>(action);
    PurgeTestBase::Process();
  }
};

TEST_F(PurgerMissingTest, StartsWithTheDescribedChoice) {
  const FilterView view;
  EXPECT_TRUE(view.EnbPurge);
  EXPECT_EQ(view.MissAction, 1);
  EXPECT_TRUE(view.DontUsePath);
}

TEST_F(PurgerMissingTest, OneBoxAtLeastMustBeTicked) {
  FilterView view;
  EXPECT_TRUE(view.CanSearch());
  view.EnbPurge = false;
  EXPECT_FALSE(view.CanSearch());
  view.EnbDuplicate = true;
  EXPECT_TRUE(view.CanSearch());
}

TEST_F(PurgerMissingTest, TellsThatNothingIsMissing) {
  Touch({"a.mp3"});
  AddPaths({"c:\\a.mp3"});
  Select("x");
  Process(MissingAction::kRemove);
  EXPECT_EQ(Report(), "Done: No missing Items Found...");
  EXPECT_TRUE(purger_.view.CanSearch());
  EXPECT_EQ(Selection(), "x");
  EXPECT_EQ(reports_[0], "Destroying previous data...");
  EXPECT_EQ(reports_[1], "Searching Playlist for Missing Files...");
}

TEST_F(PurgerMissingTest, SelectsTheMissingRows) {
  Touch({"b.mp3"});
  AddPaths({"c:\\a.mp3", "c:\\b.mp3", "c:\\c.mp3"});
  Select("-x-");
  Process(MissingAction::kSelect);
  EXPECT_EQ(Selection(), "x-x");
  EXPECT_EQ(Rows().FocusedRow(), 3);
  EXPECT_EQ(Report(), "Done: 2 Items Selected");
  EXPECT_FALSE(engine_.document.PlaylistChanged);
  EXPECT_FALSE(could_search_);
  EXPECT_TRUE(purger_.view.CanSearch());
}

TEST_F(PurgerMissingTest, RemovesTheMissingRowsAndNoOthers) {
  Touch({"b.mp3", "d.mp3"});
  AddPaths({"c:\\a.mp3", "c:\\b.mp3", "c:\\c.mp3", "c:\\d.mp3", "c:\\e.mp3"});
  Select("-x-x-");
  Process(MissingAction::kRemove);
  EXPECT_EQ(Paths(), "c:\\b.mp3|c:\\d.mp3");
  EXPECT_EQ(Selection(), "--");
  EXPECT_EQ(Report(), "Done: 3 Items Removed");
  EXPECT_TRUE(engine_.document.PlaylistChanged);
  EXPECT_TRUE(purger_.view.CanSearch());
  EXPECT_EQ(drives_.Read("b.mp3"), "abc");
}

TEST_F(PurgerMissingTest, SaysBeforeItActsWhatLiesOnPlacesThatArentThere) {
  Touch({"a.mp3"});
  AddPaths({"c:\\a.mp3", "e:\\b.mp3", "e:\\c.mp3", "c:\\d.mp3"});
  Process(MissingAction::kRemove);
  const std::string line = "2 of them lie on places that aren't there now: e:";
  EXPECT_EQ(purger_.view.absent_places, line);
  EXPECT_EQ(std::ranges::count(painted_, line + " > 4"), 1);
  EXPECT_EQ(painted_.back(), line + " > 1");
  Process(MissingAction::kRemove);
  EXPECT_EQ(purger_.view.absent_places, "");
  EXPECT_TRUE(painted_.back().starts_with(" > "));
}

TEST_F(PurgerMissingTest, RunsBehindTheDuplicatesWhereBothAreTicked) {
  Touch({"a.mp3"});
  AddPaths({"c:\\a.mp3", "c:\\b.mp3", "c:\\a.mp3", "c:\\b.mp3"});
  purger_.view.EnbDuplicate = true;
  Process(MissingAction::kRemove);
  EXPECT_EQ(Paths(), "c:\\a.mp3");
  EXPECT_EQ(Report(), "Done: 1 Items Removed");
  EXPECT_EQ(std::ranges::count(reports_, "Done: Removed 2 Duplicate Items"), 1);
}

TEST_F(PurgerMissingTest, KeepsTheWindowAlive) {
  AddPaths({"c:\\a.mp3", "c:\\b.mp3"});
  Process(MissingAction::kSelect);
  EXPECT_GE(alive_, 2);
  EXPECT_EQ(feedback_.waits, 0);
  EXPECT_EQ(feedback_.most_waits, 2);
}

}  // namespace
}  // namespace qublet

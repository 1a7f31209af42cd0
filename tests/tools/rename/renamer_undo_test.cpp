#include <gtest/gtest.h>

#include "support/renamer_run_test_base.h"

namespace qublet {
namespace {

class RenamerUndoTest : public RenamerRunTestBase {};

TEST_F(RenamerUndoTest, UndoRestoresNamesAndSelectsTheirRows) {
  AddSongs({"a_1.mp3", "B.mp3", "a_2.mp3"});
  Run();
  engine_.document.PlaylistChanged = false;
  Undo();
  EXPECT_EQ(FilesOfC(), "B.mp3|a_1.mp3|a_2.mp3");
  EXPECT_EQ(RowNames(), "a_1.mp3|B.mp3|a_2.mp3");
  EXPECT_EQ(Selection(), "x-x");
  EXPECT_EQ(renamer_.view.report, "Done: 2/2 Items were Restored");
  EXPECT_FALSE(engine_.document.PlaylistChanged);
}

TEST_F(RenamerUndoTest, UndoTakesTheLastRenameBackFirst) {
  Quiet();
  renamer_.AddRule_Click("b", "c");
  renamer_.AddRule_Click("a", "b");
  AddSongs({"b.mp3", "a.mp3"});
  Run();
  ASSERT_EQ(RowNames(), "c.mp3|b.mp3");
  Undo();
  EXPECT_EQ(FilesOfC(), "a.mp3|b.mp3");
  EXPECT_EQ(RowNames(), "b.mp3|a.mp3");
  EXPECT_EQ(drives_.Read("b.mp3"), "b.mp3");
  EXPECT_EQ(renamer_.view.report, "Done: 2/2 Items were Restored");
}

TEST_F(RenamerUndoTest, UndoChangesTheFirstRowOfAFile) {
  AddSongs({"a_1.mp3"});
  Run();
  AddRows({"A 1.mp3"});
  Select("xx");
  Undo();
  EXPECT_EQ(RowNames(), "a_1.mp3|A 1.mp3");
  EXPECT_EQ(Selection(), "x-");
}

TEST_F(RenamerUndoTest, UndoWithoutARowRenamesTheFileAllTheSame) {
  AddSongs({"a_1.mp3", "a_2.mp3"});
  Run();
  Rows().Remove(1);
  Undo();
  EXPECT_EQ(FilesOfC(), "a_1.mp3|a_2.mp3");
  EXPECT_EQ(RowNames(), "a_2.mp3");
  EXPECT_EQ(renamer_.view.report, "Done: 2/2 Items were Restored");
}

TEST_F(RenamerUndoTest, UndoNeverReplacesAFileAndCanBeTriedAgain) {
  AddSongs({"a_1.mp3", "a_2.mp3", "a_3.mp3"});
  Run();
  drives_.Write("a_2.mp3", "another");
  Undo();
  EXPECT_EQ(renamer_.view.report, "Done: 2/3 Items were Restored");
  EXPECT_TRUE(renamer_.view.undo);
  EXPECT_FALSE(renamer_.view.timer);
  EXPECT_EQ(drives_.Read("a_2.mp3"), "another");
  EXPECT_EQ(RowNames(), "a_1.mp3|A 2.mp3|a_3.mp3");
  EXPECT_EQ(Selection(), "x-x");
  std::filesystem::remove(drives_.C() / "a_2.mp3");
  Undo();
  EXPECT_EQ(renamer_.view.report, "Done: 1/1 Items were Restored");
  EXPECT_FALSE(renamer_.view.undo);
  EXPECT_EQ(RowNames(), "a_1.mp3|a_2.mp3|a_3.mp3");
  EXPECT_EQ(Selection(), "-x-");
  EXPECT_EQ(drives_.Read("a_2.mp3"), "a_2.mp3");
}

}  // namespace
}  // namespace qublet

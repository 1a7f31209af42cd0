#include "playlist/list_commands.h"

#include <algorithm>

#include "support/list_test_base.h"
#include "support/scripted_dialogs.h"
#include "support/scripted_random.h"
#include "support/scripted_shell.h"

namespace qublet {
namespace {

class ListCommandsTest : public ListTestBase {
 protected:
  using Command = void (ListCommands::*)();

  ListCommandsTest() { settings_.SHUFFLEINT = 1; }
  void Fill() {
    Rows().Insert(1, NamedRows({"c", "a", "b"}));
    Rows().SetSelected(2, true);
  }
  // What the window was asked to show, and whether the wait cursor stood meanwhile and is gone.
  void ExpectRun(Command command, bool refreshes, bool waits) {
    Rows().Clear();
    Fill();
    view_.shown.clear();
    feedback_.most_waits = 0;
    (commands_.*command)();
    EXPECT_EQ(view_.shown.size(), refreshes ? 1U : 0U);
    EXPECT_EQ(feedback_.most_waits > 0, waits);
    EXPECT_EQ(feedback_.waits, 0);
  }

  AppSettings settings_;
  ScriptedDialogs& dialogs_ = fakes_.dialogs;
  ScriptedShell& shell_ = fakes_.shell;
  ScriptedRandom& random_ = fakes_.random;
  ListCommands commands_{document_, items_, settings_, services_, view_};
};

TEST_F(ListCommandsTest, SortWithoutAQuestionWhenNoneIsWanted) {
  Fill();
  commands_.ListView1_ColumnClick(1);
  EXPECT_EQ(Names(), "a b c");
  EXPECT_EQ(Selection(), "x--");
  EXPECT_TRUE(dialogs_.messages.empty());
  EXPECT_TRUE(view_.shown.empty()) << "a sort refreshes nothing";
  EXPECT_EQ(feedback_.most_waits, 0);
}

TEST_F(ListCommandsTest, AskBeforeASortByTheHeaderOfTheColumn) {
  settings_.PROMPTSORT = true;
  Fill();
  dialogs_.answers = {MessageAnswer::kNo, MessageAnswer::kYes};
  commands_.ListView1_ColumnClick(1);
  EXPECT_EQ(Names(), "c a b");
  commands_.ListView1_ColumnClick(1);
  EXPECT_EQ(Names(), "a b c") << "the sort that was refused is none";
  commands_.ListView1_ColumnClick(12);
  ASSERT_EQ(dialogs_.messages.size(), 3U);
  EXPECT_EQ(dialogs_.messages[0].text, "Sort by FileName?");
  EXPECT_EQ(dialogs_.messages[0].buttons, MessageButtons::kYesNo);
  EXPECT_EQ(dialogs_.messages[2].text, "Sort by Original Order?");
}

TEST_F(ListCommandsTest, AskNothingOnAnEmptyList) {
  settings_.PROMPTSORT = true;
  commands_.ListView1_ColumnClick(1);
  EXPECT_TRUE(dialogs_.messages.empty());
}

TEST_F(ListCommandsTest, SortTwiceByAColumnThatWasSortedInAnEarlierList) {
  Fill();
  commands_.ListView1_ColumnClick(1);
  Rows().Clear();
  commands_.ListView1_ColumnClick(1);
  Fill();
  commands_.ListView1_ColumnClick(1);
  EXPECT_EQ(Names(), "c b a") << "a click on an empty list doesn't count";
}

TEST_F(ListCommandsTest, WaitWhileTheyRunAndRefreshTheWindowOnce) {
  for (const Command command :
       {&ListCommands::MEditSelTop_Click, &ListCommands::MEditSelBottom_Click, &ListCommands::MEditSelShuffle_Click,
        &ListCommands::MEditSelAll_Click, &ListCommands::MEditSelInv_Click, &ListCommands::MEditSelAlt_Click,
        &ListCommands::MEditSelRnd_Click, &ListCommands::MEditSelFol_Click, &ListCommands::MEditSelLoc_Click,
        &ListCommands::MEditSelImpFol_Click, &ListCommands::MEditSeUnMark_Click, &ListCommands::MEditSelectMark_Click,
        &ListCommands::MEditRemove_Click}) {
    ExpectRun(command, true, true);
  }
  for (const Command command : {&ListCommands::MEditMoveUp_Click, &ListCommands::MEditMoveDown_Click}) {
    ExpectRun(command, true, false);
  }
}

TEST_F(ListCommandsTest, RefreshNothingAfterAMarkOrACancelledReplacement) {
  for (const Command command : {&ListCommands::MEditSeMarkBlue_Click, &ListCommands::MEditSeMarkGreen_Click,
                                &ListCommands::MEditSeMarkRed_Click, &ListCommands::Mreloc_Click}) {
    ExpectRun(command, false, true);
  }
}

TEST_F(ListCommandsTest, RefreshAfterAReplacement) {
  Touch({"a.mp3"});
  Fill();
  Rows().SetFocusedRow(2);
  dialogs_.open_names = {"c:\\nothing.txt"};
  view_.shown.clear();
  commands_.Mreloc_Click();
  EXPECT_EQ(view_.shown.size(), 1U);
}

TEST_F(ListCommandsTest, ShuffleByTheIntensityOfTheSettings) {
  Fill();
  settings_.SHUFFLEINT = 0;
  commands_.MEditSelShuffle_Click();
  EXPECT_EQ(settings_.SHUFFLEINT, 1);
}

TEST_F(ListCommandsTest, LeaveMarksOnTheirRowsThroughMovesSortsAndShuffles) {
  Fill();
  commands_.MEditSeMarkRed_Click();
  commands_.MEditMoveUp_Click();
  EXPECT_EQ(Rows().At(1).icon, RowIcon::kRed);
  commands_.ListView1_ColumnClick(1);
  commands_.ListView1_ColumnClick(1);
  EXPECT_EQ(Names(), "c b a");
  EXPECT_EQ(Rows().At(3).icon, RowIcon::kRed);
  random_.otherwise = 0.5;
  commands_.MEditSelAll_Click();
  commands_.MEditSelShuffle_Click();
  commands_.MEditSelectMark_Click();
  commands_.MEditSelTop_Click();
  EXPECT_EQ(Rows().At(1).cells[kFileName], "a");
  EXPECT_EQ(Selection(), "x--");
}

}  // namespace
}  // namespace qublet

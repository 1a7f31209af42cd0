#include "support/editor_lists_test_base.h"

namespace qublet {
namespace {

class TimePositionsTest : public EditorListsTestBase {};

TEST_F(TimePositionsTest, LoadsThePositionsOfATagAndSelectsNone) {
  ShowComments({{"QUBLET_tpsidata", "000001000000120000"}});
  EXPECT_EQ(positions_.Records(), (Collection{"000001000", "000120000"}));
  EXPECT_EQ(positions_.Selected(), 0);
  EXPECT_EQ(comments_.Rows().size(), 1u) << "an ordinary row as well";
}

TEST_F(TimePositionsTest, PutsEveryChangeOfThePositionsAmongTheComments) {
  ShowComments({{"a", "b"}});
  AddPosition(0, 2, 0);
  AddPosition(0, 0, 1);
  AddPosition(0, 2, 0);
  AddPosition(0, 0, 0);
  EXPECT_EQ(comments_.Rows(), (Comments{{"a", "b"}, {"QUBLET_tpsidata", "000120000000001000"}}));
  positions_.TPSIremove_Click();
  EXPECT_EQ(positions_.Records().size(), 2u) << "none is selected";
  positions_.Select(1);
  positions_.TPSIremove_Click();
  EXPECT_EQ(comments_.Rows(), (Comments{{"a", "b"}, {"QUBLET_tpsidata", "000001000"}}));
  EXPECT_EQ(positions_.Selected(), 0);
  Update();
  EXPECT_EQ(Loaded("a.mp3").Comments().At(2).text, "000001000");
  EXPECT_EQ(positions_.Records(), Collection{"000001000"});
}

TEST_F(TimePositionsTest, AsksAheadOfRemovingAllPositions) {
  positions_.TPSIclrall_Click();
  EXPECT_TRUE(Messages().empty()) << "there are none";
  AddPosition(0, 0, 1);
  positions_.Select(1);
  fakes_.dialogs.answers = {MessageAnswer::kNo, MessageAnswer::kYes};
  positions_.TPSIclrall_Click();
  EXPECT_EQ(Messages().back(), (ScriptedDialogs::Message{"Are you sure you want to remove all TPSI references?",
                                                         MessageIcon::kQuestion, MessageButtons::kYesNo}));
  EXPECT_EQ(positions_.Records().size(), 1u);
  positions_.TPSIclrall_Click();
  EXPECT_TRUE(positions_.Records().empty());
  EXPECT_EQ(positions_.Selected(), 0);
  EXPECT_TRUE(comments_.Rows().empty()) << "none leave no trace";
}

TEST_F(TimePositionsTest, KeepsThePositionsCommentSelectedWhileItChanges) {
  ShowComments({{"QUBLET_tpsidata", "000001000"}, {"a", "b"}});
  AddPosition(0, 0, 2);
  EXPECT_EQ(comments_.Selected(), 2);
  EXPECT_EQ(comments_.ID3v2Comment, "000001000000002000");
  comments_.Select(1);
  comments_.ID3v2Comment = "being written";
  AddPosition(0, 0, 3);
  EXPECT_EQ(comments_.Selected(), 1);
  EXPECT_EQ(comments_.ID3v2Comment, "being written");
}

TEST_F(TimePositionsTest, LeavesAReservedCommentThatHoldsNoPositionsUntilTheNextChange) {
  ShowComments({{"QUBLET_tpsidata", "17 characters ..."}});
  EXPECT_TRUE(positions_.Records().empty());
  EXPECT_EQ(comments_.Rows().size(), 1u);
  AddPosition(0, 0, 1);
  EXPECT_EQ(comments_.Rows(), (Comments{{"QUBLET_tpsidata", "000001000"}}));
}

TEST_F(TimePositionsTest, GoesToThePositionSelectedInTheFileThatIsStarted) {
  drives_.Write("program/x", "");
  fakes_.players.running = "new";
  fakes_.players.state = kPlaying;
  engine_.player.PlayerWindow = "old";
  ShowComments({{"QUBLET_tpsidata", "000001000000120000"}});
  positions_.TPSIgoto_Click();
  EXPECT_EQ(fakes_.players.calls, (std::vector<std::string>{"stop old", "jump new 1000"})) << "the first if none is";
  EXPECT_EQ(drives_.Read("program/tmp.m3u"), "c:\\a.mp3\r\n");
  EXPECT_EQ(engine_.player.PlayerWindow, "new");
  positions_.Select(2);
  positions_.TPSIgoto_Click();
  EXPECT_EQ(fakes_.players.calls.back(), "jump new 120000");
  EXPECT_TRUE(Messages().empty());
}

TEST_F(TimePositionsTest, JumpsAfterItsPatienceWhenThePlayerDoesNotSayThatItPlays) {
  fakes_.players.running = "slow";
  fakes_.players.start.questions = 3;
  AddPosition(0, 0, 5);
  positions_.TPSIgoto_Click();
  EXPECT_EQ(fakes_.players.calls.back(), "jump slow 5000");
}

TEST_F(TimePositionsTest, SaysWhenNoPlayerCameUp) {
  positions_.TPSIgoto_Click();
  EXPECT_TRUE(fakes_.shell.opened.empty()) << "an empty list starts nothing";
  AddPosition(0, 0, 5);
  positions_.TPSIgoto_Click();
  EXPECT_EQ(Messages().back(),
            (ScriptedDialogs::Message{"WinAmp must be asociated with M3U files/running!\n\r   If WinAmp has just "
                                      "loaded please try again.",
                                      MessageIcon::kStop, MessageButtons::kOk}));
}

TEST_F(TimePositionsTest, TakesThePlayersPositionWithEachTickWhileTheBoxIsChecked) {
  int answered = 0;
  const auto tick = [&] { positions_.TPSItimer_Timer([&] { ++answered; }); };
  fakes_.players.running = "p";
  fakes_.players.position = 3725501;
  tick();
  EXPECT_EQ(positions_.TPSIsec, 0);
  positions_.TPSIautoupdate = true;
  tick();
  EXPECT_EQ(positions_.TPSIhour, 1);
  EXPECT_EQ(positions_.TPSImin, 2);
  EXPECT_EQ(positions_.TPSIsec, 6) << "rounded";
  EXPECT_EQ(engine_.player.PlayerWindow, "p");
  fakes_.players.position = kNoAnswer;
  tick();
  EXPECT_EQ(positions_.TPSIsec, 6) << "a player that hangs changes nothing";
  fakes_.players.running = "";
  tick();
  EXPECT_FALSE(positions_.TPSIautoupdate);
  EXPECT_EQ(answered, 4);
}

}  // namespace
}  // namespace qublet

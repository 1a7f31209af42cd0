#include "settings/update/update_check.h"

#include <gtest/gtest.h>

#include "support/environment.h"
#include "support/scripted_dialogs.h"

namespace qublet {
namespace {

constexpr ProgramVersion kThis{"QUBLET20", 2, 1, 93};

constexpr const char* kNewerText =
    "An updated version of this software is available.\r\nYou can visit the Website for more information\r\nor go "
    "direct to the download page to update.\r\n\r\nIf you wish to not be informed of updates as\r\nthey become "
    "available please check the settings\r\nin the preferences dialogue. Thank you.";
constexpr const char* kCurrentText = "You currently have the most up to date version installed.";
constexpr const char* kFailureText =
    "Could not download the update information. Try again later or check your internet connection.";

using Messages = std::vector<ScriptedDialogs::Message>;

TEST(VersionText, HasFourDigitsForEachNumber) {
  EXPECT_EQ(VersionText(kThis), "000200010093");
  EXPECT_EQ(VersionText({"", 9999, 0, 1234}), "999900001234");
}

TEST(VersionText, NeverCutsANumber) {
  EXPECT_EQ(VersionText({"", 2, 12345, 0}), "0002123450000");
}

TEST(VersionFileAddress, StandsBelowTheMakersSite) {
  unsetenv("QUBLET_SITE");
  EXPECT_EQ(VersionFileAddress(), Site() + "/downloads/qubcurversion.txt");
  EXPECT_TRUE(Site().starts_with("http://") && Site().ends_with(".invalid")) << Site();
  setenv("QUBLET_SITE", "http://127.0.0.1", 1);
  EXPECT_EQ(VersionFileAddress(), "http://127.0.0.1/downloads/qubcurversion.txt");
  unsetenv("QUBLET_SITE");
}

TEST(AnswerOf, ComparesVersionsAsTexts) {
  EXPECT_EQ(AnswerOf("000200010100", kThis), UpdateAnswer::kNewer);
  EXPECT_EQ(AnswerOf("000200020000", kThis), UpdateAnswer::kNewer);
  EXPECT_EQ(AnswerOf("000200010093", kThis), UpdateAnswer::kCurrent);
  EXPECT_EQ(AnswerOf("000200010092", kThis), UpdateAnswer::kCurrent);
  EXPECT_EQ(AnswerOf("no such page", kThis), UpdateAnswer::kNewer);
  EXPECT_EQ(AnswerOf("            ", kThis), UpdateAnswer::kCurrent);
  EXPECT_EQ(AnswerOf("\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF", kThis), UpdateAnswer::kNewer);
}

TEST(AnswerOf, TakesTwelveCharactersAndNothingElse) {
  for (const char* response : {"", "00020001010", "000200010093\n", "000200010093\r\n", "0002000100930"})
    EXPECT_EQ(AnswerOf(response, kThis), UpdateAnswer::kFailed) << response;
}

TEST(AnswerOf, ALongNumberUpsetsTheOrder) {
  EXPECT_EQ(AnswerOf("000200020000", {"", 2, 10000, 0}), UpdateAnswer::kCurrent);
}

TEST(AnswerOf, FailsForANumberThatCannotBeWritten) {
  EXPECT_EQ(AnswerOf("000200010100", {"", 2, 1, 40000}), UpdateAnswer::kFailed);
}

class CheckForUpdateTest : public testing::Test {
 protected:
  const std::string newer_ = VersionText({"", 9999, 0, 0});
  const std::string current_ = VersionText();
  ScriptedDialogs dialogs_;
};

TEST_F(CheckForUpdateTest, ANewerVersionIsToldInAnyCase) {
  for (const bool prompt : {false, true}) {
    dialogs_.messages.clear();
    EXPECT_TRUE(CheckForUpdate(newer_, prompt, dialogs_));
    EXPECT_EQ(dialogs_.messages, (Messages{{kNewerText, MessageIcon::kInformation, MessageButtons::kOk}}));
  }
}

TEST_F(CheckForUpdateTest, ThatThereIsNoneIsToldWhoAskedForIt) {
  EXPECT_TRUE(CheckForUpdate(current_, false, dialogs_));
  EXPECT_EQ(dialogs_.messages, Messages());
  EXPECT_TRUE(CheckForUpdate(current_, true, dialogs_));
  EXPECT_EQ(dialogs_.messages, (Messages{{kCurrentText, MessageIcon::kInformation, MessageButtons::kOk}}));
}

TEST_F(CheckForUpdateTest, AFailureIsToldWhoAskedForIt) {
  EXPECT_FALSE(CheckForUpdate("", false, dialogs_));
  EXPECT_EQ(dialogs_.messages, Messages());
  EXPECT_FALSE(CheckForUpdate(newer_ + "\n", true, dialogs_));
  EXPECT_EQ(dialogs_.messages, (Messages{{kFailureText, MessageIcon::kStop, MessageButtons::kOk}}));
}

}  // namespace
}  // namespace qublet

#include "platform/linux/desktop_entry.h"

#include <gtest/gtest.h>

#include "support/temporary_desktop.h"

namespace qublet {
namespace {

using Words = std::vector<std::string>;

TEST(ValueOf, TakesTheFirstOfAKeyInItsGroup) {
  const std::string text =
      "Key=before\n# Key=comment\n[Other]\nKey=other\n[Group]\r\nKey[de]=deutsch\nKeyed=no\n Key = a b "
      "\r\nKey=second\n";
  EXPECT_EQ(ValueOf(text, "Group", "Key"), "a b");
  EXPECT_EQ(ValueOf(text, "Other", "Key"), "other");
  EXPECT_EQ(ValueOf(text, "None", "Key"), "");
  EXPECT_EQ(ValueOf("", "Group", "Key"), "");
}

TEST(ListOf, CutsAtSemicolonsAndDropsEmptyPieces) {
  EXPECT_EQ(ListOf("[G]\nK=a; b;;c", "G", "K"), (Words{"a", "b", "c"}));
  EXPECT_EQ(ListOf("[G]\nK=;", "G", "K"), Words{});
}

TEST(CommandWords, KnowsQuotesAndBackslashes) {
  EXPECT_EQ(CommandWords("mpv  --a \"b c\" 'd \\e' f\\ g %U"), (Words{"mpv", "--a", "b c", "d \\e", "f g", "%U"}));
  EXPECT_EQ(CommandWords("\"a\\\"b\\\\c\\$\\`\\d\""), (Words{"a\"b\\c$`\\d"}));
  EXPECT_EQ(CommandWords("a \"\" b"), (Words{"a", "", "b"}));
  EXPECT_EQ(CommandWords(""), Words{});
  EXPECT_EQ(CommandWords("a \"b"), std::nullopt);
  EXPECT_EQ(CommandWords("a\\"), Words{"a\\"});
}

class CommandLineTest : public testing::Test {
 protected:
  Words Line(const std::string& exec) const {
    desktop_.AddProgram("play");
    TemporaryDesktop::AddEntry(desktop_.Data(), "play", "Icon=note\nExec=" + exec + "\n");
    const auto entry = ReadDesktopEntry("play", (desktop_.Data() / "applications/play.desktop").string());
    return entry ? entry->CommandLine("/m/a list.m3u8") : Words{};
  }

  TemporaryDesktop desktop_;
};

TEST_F(CommandLineTest, PutsTheFileWhereTheEntryWantsIt) {
  for (const std::string code : {"%f", "%F", "%u", "%U"})
    EXPECT_EQ(Line("play " + code + " --end"), (Words{"play", "/m/a list.m3u8", "--end"})) << code;
  EXPECT_EQ(Line("play --file=%f"), (Words{"play", "--file=/m/a list.m3u8"}));
}

TEST_F(CommandLineTest, PutsTheFileLastWhenTheEntryHasNoPlaceForIt) {
  EXPECT_EQ(Line("play --quiet"), (Words{"play", "--quiet", "/m/a list.m3u8"}));
}

TEST_F(CommandLineTest, FillsTheOtherCodes) {
  EXPECT_EQ(Line("play %i -c %c 100%% %d %m %f"),
            (Words{"play", "--icon", "note", "-c", "play", "100%", "/m/a list.m3u8"}));
  EXPECT_EQ(Line("play %k %f"),
            (Words{"play", (desktop_.Data() / "applications/play.desktop").string(), "/m/a list.m3u8"}));
}

TEST_F(CommandLineTest, UndoesTheEscapesOfTheValueFirst) {
  EXPECT_EQ(Line("play \"a\\\\\\\\b\" c\\sd %f"), (Words{"play", "a\\b", "c", "d", "/m/a list.m3u8"}));
}

TEST(FindProgram, LooksInThePathForWhatCanBeRun) {
  const TemporaryDesktop desktop;
  const std::string program = desktop.AddProgram("play").string();
  TemporaryDrives::WriteAt(desktop.Programs() / "text", "no program");
  std::filesystem::create_directory(desktop.Programs() / "folder");
  EXPECT_EQ(FindProgram("play"), program);
  EXPECT_EQ(FindProgram(program), program);
  EXPECT_EQ(FindProgram("text"), "");
  EXPECT_EQ(FindProgram("folder"), "");
  EXPECT_EQ(FindProgram("bin/play"), "");
  EXPECT_EQ(FindProgram(""), "");
}

}  // namespace
}  // namespace qublet

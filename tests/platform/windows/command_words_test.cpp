#include "platform/windows/command_words.h"

#include <gtest/gtest.h>

#include "support/temporary_drives.h"

namespace qublet {
namespace {

using Words = std::vector<std::string>;

class CommandWordsTest : public testing::Test {
 protected:
  TemporaryDrives drives_;  // its c: is the current folder
};

TEST_F(CommandWordsTest, AreCutAsTheSystemCutsThem) {
  EXPECT_EQ(CommandWords(L"qublet"), Words{});
  EXPECT_EQ(CommandWords(L"\"C:\\Program Files\\qublet.exe\"  list a\tb "), (Words{"list", "a", "b"}));
  EXPECT_EQ(CommandWords(L"qublet \"a b\" c\"d e\"f \"\""), (Words{"a b", "cd ef", ""}));
  EXPECT_EQ(CommandWords(L"qublet --set \"TIT2=say \\\"hi\\\" now\" a\\\\b \"c\\\\\""),
            (Words{"--set", "TIT2=say \"hi\" now", "a\\\\b", "c\\"}));
  EXPECT_EQ(CommandWords(L"qublet \"a \"\"b\"\" c\" \u0414\u0430"), (Words{"a \"b\" c", "\u0414\u0430"}));
}

TEST_F(CommandWordsTest, TakeABackslashBeforeTheLastQuoteForThatOfAFolder) {
  EXPECT_EQ(CommandWords(L"qublet list \"C:\\Music\\Sub\\\" \"D:\\b c.mp3\" e"),
            (Words{"list", "C:\\Music\\Sub\\", "D:\\b c.mp3", "e"}));
  EXPECT_EQ(CommandWords(L"qublet list \"C:\\Music\\Sub\\\""), (Words{"list", "C:\\Music\\Sub\\"}));
  drives_.Write("my sub/a.mp3", "abc");
  EXPECT_EQ(CommandWords(L"qublet list \"my sub\\\" x"), (Words{"list", "my sub\\", "x"}));
}

TEST_F(CommandWordsTest, AreTheFilesThatAPatternStandsFor) {
  for (const char* name : {"m/b.mp3", "m/A.mp3", "m/c.txt", "m/d.mp3"}) drives_.Write(name, "abc");
  EXPECT_EQ(CommandWords(L"qublet list m\\*.mp3"), (Words{"list", "m\\A.mp3", "m\\b.mp3", "m\\d.mp3"}));
  EXPECT_EQ(CommandWords(L"qublet list m/?.txt"), (Words{"list", "m/c.txt"}));
  EXPECT_EQ(CommandWords(L"qublet list m\\*.ogg --set TIT2=what?"),
            (Words{"list", "m\\*.ogg", "--set", "TIT2=what?"}));
}

}  // namespace
}  // namespace qublet

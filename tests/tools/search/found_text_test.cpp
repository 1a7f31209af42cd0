#include "tools/search/found_text.h"

#include <gtest/gtest.h>

#include "playlist/paths/text.h"

namespace qublet {
namespace {

bool Finds(std::string_view wanted, std::string_view text) {
  return FoundText(wanted, false).IsIn(text);
}
bool FindsExactly(std::string_view wanted, std::string_view text) {
  return FoundText(wanted, true).IsIn(text);
}

TEST(FoundText, IgnoresCaseUnlessItCounts) {
  EXPECT_TRUE(Finds("mp3", "A.MP3"));
  EXPECT_TRUE(Finds("MP3", "a.mp3"));
  EXPECT_FALSE(FindsExactly("mp3", "A.MP3"));
  EXPECT_TRUE(FindsExactly("MP3", "A.MP3"));
}

TEST(FoundText, FindsAtTheStartInTheMiddleAndAtTheEnd) {
  for (const char* text : {"abc", "abcx", "xabc", "xabcx", "aababcab"}) EXPECT_TRUE(Finds("abc", text)) << text;
  for (const char* text : {"", "ab", "bc", "acb", "abxc", "ababab"}) EXPECT_FALSE(Finds("abc", text)) << text;
}

TEST(FoundText, TakesSignsThatAreNoLettersAsTheyAre) {
  EXPECT_FALSE(Finds("[", "{"));
  EXPECT_FALSE(Finds("@", "`"));
  EXPECT_TRUE(Finds("a[1]*?", "xA[1]*?x"));
  EXPECT_FALSE(Finds("*", "abc"));
  EXPECT_TRUE(Finds(" ", "a b"));
}

TEST(FoundText, IsInNoTextWhenItIsEmpty) {
  EXPECT_FALSE(Finds("", "abc"));
  EXPECT_FALSE(Finds("", ""));
  EXPECT_FALSE(FindsExactly("", "\u00E9"));
}

TEST(FoundText, IgnoresCaseInEveryScript) {
  EXPECT_TRUE(Finds("BJ\u00D6RK", "bj\u00F6rk.mp3"));
  EXPECT_TRUE(Finds("\u0436\u0443\u043A", "\u0416\u0423\u041A"));
  EXPECT_FALSE(FindsExactly("\u0436", "\u0416"));
  EXPECT_FALSE(Finds("\u00F6", "o"));
}

TEST(FoundText, KnowsLettersWhoseLowerCaseIsAscii) {
  EXPECT_TRUE(Finds("k", "\u212A"));
  EXPECT_TRUE(Finds("\u212A", "K"));
  EXPECT_TRUE(Finds("i", "\u0130"));
  EXPECT_FALSE(FindsExactly("K", "\u212A"));
}

TEST(FoundText, TakesLettersThatStandForAColonOrABackslashForThose) {
  EXPECT_TRUE(Finds("AC: DC", "ac\uF03A dc.mp3"));
  EXPECT_TRUE(FindsExactly("a\\b", "a\uF05Cb"));
  EXPECT_TRUE(Finds("c\uF03A", "c:\\"));
}

TEST(FoundText, LivesWithBytesThatAreNoText) {
  EXPECT_TRUE(Finds("B",
                    "\xFF"
                    "b\xC3"));
  EXPECT_TRUE(Finds("\xFF", "a\xFF"));
  EXPECT_FALSE(Finds("\xFF", "a"));
}

// What the quick way finds is what a plain find in lower case finds.
TEST(FoundText, FindsWhatAPlainFindInLowerCaseFinds) {
  const std::string letters = "aAbB@";
  std::vector<std::string> texts{""};
  for (std::size_t i = 0; texts.size() < 800; ++i) {
    for (const char letter : letters) texts.push_back(texts[i] + letter);
  }
  int found = 0;
  for (const std::string wanted : {"a", "Ab", "bA", "aAb", "ABab", "@a@"}) {
    for (const std::string& text : texts) {
      const bool plain = Contains(LowerCase(text), LowerCase(wanted));
      EXPECT_EQ(Finds(wanted, text), plain) << wanted << " in " << text;
      EXPECT_EQ(FindsExactly(wanted, text), Contains(text, wanted)) << wanted << " in " << text;
      found += plain ? 1 : 0;
    }
  }
  EXPECT_GT(found, 500);
}

}  // namespace
}  // namespace qublet

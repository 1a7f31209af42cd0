#include "playlist/paths/text.h"

#include <gtest/gtest.h>

namespace qublet {
namespace {

using Texts = std::vector<std::string>;

TEST(ReplaceAll, ReplacesEveryOccurrenceFromLeftToRight) {
  const struct {
    const char *text, *from, *to, *expected;
  } cases[] = {{"a-b-c", "-", "+", "a+b+c"}, {"aaaa", "aa", "b", "bb"},
               {"aaa", "aa", "b", "ba"},     {"abc", "", "x", "abc"},
               {"abc", "x", "y", "abc"},     {"abc", "abc", "", ""},
               {"", "a", "b", ""},           {"aa", "a", "aa", "aaaa"},
               {"Aa", "a", "x", "Ax"},       {"%1%1", "%1", "%1%1", "%1%1%1%1"}};
  for (const auto& c : cases) EXPECT_EQ(ReplaceAll(c.text, c.from, c.to), c.expected) << c.text;
}

TEST(Contains, ComparesExactly) {
  EXPECT_TRUE(Contains("abc", "bc"));
  EXPECT_TRUE(Contains("abc", ""));
  EXPECT_FALSE(Contains("abc", "BC"));
  EXPECT_FALSE(Contains("", "a"));
}

TEST(Split, GivesOnePieceMoreThanThereAreSeparators) {
  EXPECT_EQ(Split("a\\b\\c", '\\'), (Texts{"a", "b", "c"}));
  EXPECT_EQ(Split("", '\\'), (Texts{""}));
  EXPECT_EQ(Split("abc", '\\'), (Texts{"abc"}));
  EXPECT_EQ(Split("\\a\\\\", '\\'), (Texts{"", "a", "", ""}));
}

TEST(Trim, TakesBlanksOnly) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim(""), "");
  EXPECT_EQ(Trim(" \ta\n "), "\ta\n");
  EXPECT_EQ(Trim("\u00A0a"), "\u00A0a");
}

TEST(LowerCaseAndUpperCase, ChangeCharacterByCharacter) {
  EXPECT_EQ(LowerCase("ABC xyz 1 ÄÉ ΣΩ Ж"), "abc xyz 1 äé σω ж");
  EXPECT_EQ(UpperCase("ABC xyz 1 äé σω ж"), "ABC XYZ 1 ÄÉ ΣΩ Ж");
  EXPECT_EQ(UpperCase("straße"), "STRAßE");
  EXPECT_EQ(LowerCase(""), "");
}

TEST(LowerCaseAndUpperCase, LeaveBytesThatAreNotUtf8AsTheyAre) {
  EXPECT_EQ(LowerCase("A\xFF\x80Z\xC3"), "a\xFF\x80z\xC3");
  EXPECT_EQ(UpperCase(std::string_view("a\0b\xED\xA0\x80", 6)), std::string("A\0B\xED\xA0\x80", 6));
}

TEST(ProperCase, StartsWordsAfterWhiteSpaceAndPunctuation) {
  const struct {
    const char *text, *expected;
  } cases[] = {{"hello world", "Hello World"},
               {"HELLO WORLD", "Hello World"},
               {"don't stop", "Don't Stop"},
               {"DON\u2019T", "Don\u2019t"},
               {"rock 'n' roll", "Rock 'n' Roll"},
               {"abba - (live) [disc_one]", "Abba - (Live) [Disc_One]"},
               {"ac/dc", "Ac/Dc"},
               {"a.b,c;d:e!f?g&h\"i", "A.B,C;D:E!F?G&H\"I"},
               {"tab\there\nline\u00A0space", "Tab\tHere\nLine\u00A0Space"},
               {"1st 2ND 03track", "1st 2nd 03track"},
               {"élan ÜBER straße", "Élan Über Straße"},
               {"~best+of~ $ave", "~Best+of~ $Ave"},
               {"non\u2013stop \u00ABquote\u00BB", "Non\u2013Stop \u00ABQuote\u00BB"},
               {"", ""},
               {"x", "X"}};
  for (const auto& c : cases) EXPECT_EQ(ProperCase(c.text), c.expected);
}

TEST(Decomposed, SetsAccentsBehindTheirLetters) {
  EXPECT_EQ(Decomposed("plain"), "plain");
  EXPECT_EQ(Decomposed(""), "");
  EXPECT_EQ(Decomposed("caf\u00E9"), "cafe\u0301");
  EXPECT_EQ(Decomposed("cafe\u0301"), "cafe\u0301");
  EXPECT_EQ(Decomposed("\u1EAD"), Decomposed("a\u0302\u0323"));
  EXPECT_EQ(Decomposed("\xC3 \u00E9"), "\xC3 \u00E9");
}

TEST(FoldCase, MakesTextsEqualThatDifferOnlyInCase) {
  EXPECT_EQ(FoldCase("ABC äÖ ΣΑΣ Ж"), FoldCase("abc Äö σας ж"));
  EXPECT_EQ(FoldCase("ẞ"), FoldCase("ß"));
  EXPECT_EQ(FoldCase("\u212A"), "k");
  EXPECT_NE(FoldCase("a"), FoldCase("ä"));
}

TEST(FoldCase, KeepsTheCountOfCharacters) {
  for (const char* text : {"straße", "İstanbul", "ﬁnale", "ŉ", "ΐ", "\xFF\xFE"})
    EXPECT_EQ(CharacterCount(FoldCase(text)), CharacterCount(text)) << text;
}

TEST(CharacterCount, CountsCodePointsAndStrayBytes) {
  EXPECT_EQ(CharacterCount(""), 0u);
  EXPECT_EQ(CharacterCount("abc"), 3u);
  EXPECT_EQ(CharacterCount("äö€😀"), 4u);
  EXPECT_EQ(CharacterCount("a\xFF\xC3"), 3u);
}

TEST(FirstCharacters, NeverCutsACharacter) {
  EXPECT_EQ(FirstCharacters("äöü", 2), "äö");
  EXPECT_EQ(FirstCharacters("😀a", 1), "😀");
  EXPECT_EQ(FirstCharacters("abc", 0), "");
  EXPECT_EQ(FirstCharacters("abc", 9), "abc");
}

TEST(CharacterText, GivesTheBytesOfACodePoint) {
  EXPECT_EQ(CharacterText(U'a'), "a");
  EXPECT_EQ(CharacterText(U'\u202F'), "\u202F");
  EXPECT_EQ(CharacterText(0xD800), "");
  EXPECT_EQ(CharacterText(0x110000), "");
}

TEST(MatchesWildcard, IgnoresCaseAndCountsCharacters) {
  const struct {
    const char *name, *pattern;
    bool expected;
  } cases[] = {{"a.mp3", "*.mp3", true},
               {"A.MP3", "*.mp3", true},
               {"a.mp3", "*.MP3", true},
               {"a.mp3x", "*.mp3", false},
               {".mp3", "*.mp3", true},
               {"amp3", "*.mp3", false},
               {"noextension", "*.*", true},
               {"", "*.*", true},
               {"abc", "a?c", true},
               {"aäc", "a?c", true},
               {"aßc", "a?c", true},
               {"ac", "a?c", false},
               {"abbc", "a?c", false},
               {"abc", "*", true},
               {"", "*", true},
               {"", "", true},
               {"a", "", false},
               {"ÄB.Mp3", "äb.*", true},
               {"aXbXc", "a*b*c", true},
               {"aXbX", "a*b*c", false},
               {"mississippi", "m*iss*ip*", true},
               {"mississippi", "m*issip*x", false},
               {"abc", "abc*", true},
               {"abc", "abc?", false},
               {"a.b.mp3", "*.mp3", true},
               {"a\xFF"
                "b",
                "a?b", true},
               {"[a].mp3", "[a]*", true}};
  for (const auto& c : cases) EXPECT_EQ(MatchesWildcard(c.name, c.pattern), c.expected) << c.name << " " << c.pattern;
}

TEST(MatchesWildcard, StaysQuickForAPatternFullOfStars) {
  std::string pattern;
  for (int i = 0; i < 100; ++i) pattern += "*a";
  EXPECT_FALSE(MatchesWildcard(std::string(250, 'a'), pattern + "b"));
}

}  // namespace
}  // namespace qublet

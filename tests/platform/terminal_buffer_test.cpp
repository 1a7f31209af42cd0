#include "platform/terminal_buffer.h"

#include <gtest/gtest.h>

#include <sstream>
#include <vector>

namespace qublet {
namespace {

TEST(WholeCharacters, EndBeforeOneThatIsCut) {
  EXPECT_EQ(WholeCharacters(""), 0u);
  EXPECT_EQ(WholeCharacters("abc"), 3u);
  EXPECT_EQ(WholeCharacters("ab\u00E9"), 4u);
  EXPECT_EQ(WholeCharacters("ab\xC3"), 2u);
  EXPECT_EQ(WholeCharacters("ab\xE2\x82"), 2u);
  EXPECT_EQ(WholeCharacters("ab\xF0\x9F\x8E"), 2u);
  EXPECT_EQ(WholeCharacters("ab\x80\x80\x80\x80"), 6u) << "no character at all";
}

TEST(TerminalText, KeepsWhatHasAShapeAndWhatPartsLinesAndColumns) {
  const std::string text = "caf\u00E9\t\u0414\u0430\n\u3042 \U0001F3B5 \u0645\u200C\n";
  EXPECT_EQ(TerminalText(text), text);
}

TEST(TerminalText, ShowsControlCharactersAsPictures) {
  EXPECT_EQ(TerminalText("\x1B]0;owned\x07"), "\u241B]0;owned\u2407");
  EXPECT_EQ(TerminalText("over\rwritten\b\x7F"), "over\u240Dwritten\u2408\u2421");
  EXPECT_EQ(TerminalText(std::string("\0", 1)), "\u2400");
  EXPECT_EQ(TerminalText("\u0080\u009B31m\u009F"), "\uFFFD\uFFFD31m\uFFFD");
}

TEST(TerminalText, MarksWhatTurnsOrHidesOthers) {
  for (const char* control : {"\u061C", "\u200E", "\u200F", "\u202A", "\u202B", "\u202C", "\u202D", "\u202E",
                              "\u2066", "\u2067", "\u2068", "\u2069", "\u2028", "\u2029", "\u200B", "\uFEFF"})
    EXPECT_EQ(TerminalText(std::string("a") + control + "3pm.exe"), "a\uFFFD3pm.exe");
}

TEST(TerminalText, ShowsStandInsAsWhatTheyStandForAndMarksOtherPrivateLetters) {
  EXPECT_EQ(TerminalText("a\uF03Ab\uF05Cc\uF01Bd\uF7E9"), "a:b\\c\u241Bd\uFFFD");
  EXPECT_EQ(TerminalText("\uE000\uF8FF\U000F0000\U0010FFFD"), "\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(TerminalText, MarksBytesThatAreNoText) {
  EXPECT_EQ(TerminalText("a\x9B\x31m\xFF"), "a\uFFFD1m\uFFFD");
  EXPECT_EQ(TerminalText("\xE2\x82"), "\uFFFD\uFFFD");
}

class TerminalStreamTest : public testing::Test {
 protected:
  TerminalBuffer::Show Keep() {
    return [this](const std::string& text) {
      pieces.push_back(text);
      return works;
    };
  }
  std::string Shown() const {
    std::string all;
    for (const std::string& piece : pieces) all += piece;
    return all;
  }
  std::vector<std::string> pieces;
  bool works = true;
};

TEST_F(TerminalStreamTest, PutsCharactersTogetherThatComeInPieces) {
  TerminalBuffer buffer(Keep());
  std::ostream out(&buffer);
  out << "a\xC2" << std::flush;
  EXPECT_EQ(Shown(), "a");
  out << "\x9B" << std::flush;
  EXPECT_EQ(Shown(), "a\uFFFD");
}

TEST_F(TerminalStreamTest, ShowsACharacterThatNeverBecameWholeAtItsEnd) {
  {
    TerminalBuffer buffer(Keep());
    std::ostream out(&buffer);
    out << "a\xE2\x82";
  }
  EXPECT_EQ(Shown(), "a\uFFFD\uFFFD");
}

TEST_F(TerminalStreamTest, ShowsLongTextsInPieces) {
  std::string text;
  for (int i = 0; i < 20000; ++i) text += "\u00E9";
  TerminalBuffer buffer(Keep());
  std::ostream out(&buffer);
  out << "x" << text << std::flush;
  EXPECT_EQ(Shown(), "x" + text);
  for (const std::string& piece : pieces) EXPECT_LE(piece.size(), 4096u);
}

TEST_F(TerminalStreamTest, TellsThatATerminalHasGone) {
  works = false;
  TerminalBuffer buffer(Keep());
  std::ostream out(&buffer);
  out << "a";
  EXPECT_FALSE(out.flush());
}

TEST_F(TerminalStreamTest, GivesTheStreamItsOwnWayBack) {
  std::ostringstream out;
  {
    const TerminalStream stream(out, Keep());
    out << "\x1B";
  }
  out << "\x1B";
  EXPECT_EQ(Shown(), "\u241B");
  EXPECT_EQ(out.str(), "\x1B");
}

}  // namespace
}  // namespace qublet

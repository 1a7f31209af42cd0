#include "platform/code_page.h"

#include <gtest/gtest.h>

namespace qublet {
namespace {

std::string EveryByte() {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  return bytes;
}

TEST(CodePage, GivesEveryByteAMeaningThatLeadsBackToIt) {
  const std::string utf8 = FromCodePage(EveryByte());
  EXPECT_TRUE(IsValidUtf8(utf8));
  EXPECT_EQ(ToCodePage(utf8), EveryByte());
}

TEST(CodePage, HasNothingForACharacterThatDoesNotFit) {
  EXPECT_EQ(ToCodePage("a\u4E2D"), std::nullopt);
  EXPECT_EQ(ToCodePage("\U0001F3B5"), std::nullopt);
  EXPECT_EQ(ToCodePage("\uF05C"), std::nullopt);
}

TEST(CodePage, HasNothingForBytesThatAreNoUtf8) {
  EXPECT_EQ(ToCodePage("a\xFF"), std::nullopt);
  EXPECT_EQ(ToCodePage("\xC3"), std::nullopt);
}

TEST(IsValidUtf8, TakesWellFormedTexts) {
  for (const std::string text : {"", "abc", "\u00E9", "\u20AC", "\U0010FFFF", "\uD7FF\uE000"}) {
    EXPECT_TRUE(IsValidUtf8(text)) << text;
  }
  EXPECT_TRUE(IsValidUtf8(std::string(3, '\0')));
}

TEST(IsValidUtf8, RefusesOverlongFormsSurrogatesAndNumbersBeyondTheLast) {
  for (const std::string text : {"\xC0\xAF", "\xC1\xBF", "\xE0\x80\xAF", "\xF0\x80\x80\xAF", "\xED\xA0\x80",
                                 "\xED\xBF\xBF", "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\x80", "\xC3",
                                 "\xE2\x82", "\xF0\x9F\x8E", "a\xC3z", "\xFE", "\xFF"}) {
    EXPECT_FALSE(IsValidUtf8(text)) << ::testing::PrintToString(text);
  }
}

TEST(DecodeText, SkipsAByteOrderMark) {
  EXPECT_EQ(DecodeText("\xEF\xBB\xBF"
                       "a.mp3"),
            "a.mp3");
  EXPECT_EQ(DecodeText("\xEF\xBB\xBF"), "");
}

TEST(DecodeText, TakesValidUtf8AsItIsAndAnythingElseAsCodePageText) {
  EXPECT_EQ(DecodeText("caf\xC3\xA9"), "caf\u00E9");
  EXPECT_EQ(DecodeText("caf\xE9"), "caf\u00E9");
  EXPECT_EQ(DecodeText("caf\xC3\xA9 and caf\xE9"), FromCodePage("caf\xC3\xA9 and caf\xE9"));
}

TEST(EncodeText, WritesCodePageBytesWhereEveryCharacterFits) {
  EXPECT_EQ(EncodeText("z:\\caf\u00E9.mp3\r\n"), "z:\\caf\xE9.mp3\r\n");
  EXPECT_EQ(EncodeText(""), "");
}

TEST(EncodeText, WritesUtf8WithoutAMarkWhereOneCharacterDoesNotFit) {
  EXPECT_EQ(EncodeText("caf\u00E9 \u4E2D"), "caf\xC3\xA9 \xE4\xB8\xAD");
}

TEST(EncodeText, WritesUtf8WhereItsCodePageBytesWouldBeTakenForUtf8) {
  const std::string text = "\u00C3\u00A9";  // its code page bytes C3 A9 read as another letter
  EXPECT_EQ(EncodeText(text), text);
  const std::string mark = "\u00EF\u00BB\u00BF.mp3";  // its code page bytes begin with a byte-order mark
  EXPECT_EQ(EncodeText(mark), mark);
}

TEST(EncodeText, IsReadBackAsTheSameText) {
  for (const std::string text : {"abc", "caf\u00E9", "\u00C3\u00A9", "\u00EF\u00BB\u00BFx", "\uFEFFx", "\u4E2D\u00E9",
                                 "\uF05C\uF7FF", "a\r\nb", "\u0081\u008D"}) {
    EXPECT_EQ(DecodeText(EncodeText(text)), text);
  }
  const std::string every = FromCodePage(EveryByte());
  EXPECT_EQ(DecodeText(EncodeText(every)), every);
}

}  // namespace
}  // namespace qublet

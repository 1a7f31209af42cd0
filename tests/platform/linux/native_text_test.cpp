#include "platform/linux/native_text.h"

#include <gtest/gtest.h>

#include <random>

#include "platform/code_page.h"
#include "platform/failure.h"

namespace qublet {
namespace {

TEST(NativeText, ExchangesTheSeparators) {
  EXPECT_EQ(TextFromNative("/home/u/a.mp3"), "\\home\\u\\a.mp3");
  EXPECT_EQ(NativeFromText("\\home\\u/a.mp3"), "/home/u/a.mp3");
}

TEST(NativeText, KeepsLettersOfAllPlanes) {
  const std::string name = "caf\u00E9 \u4E2D\u6587 \U0001F3B5 \uFFFD";
  EXPECT_EQ(TextFromNative(name), name);
  EXPECT_EQ(NativeFromText(name), name);
}

TEST(NativeText, ShowsWhatATextPathCannotHoldByPrivateLetters) {
  EXPECT_EQ(TextFromNative("AC\\DC"), "AC\uF05C\x44\x43");
  EXPECT_EQ(TextFromNative("12:30"), "12\uF03A\x33\x30");
  EXPECT_EQ(TextFromNative("a\nb\x01\x1F"), "a\uF00A\x62\uF001\uF01F");
  EXPECT_EQ(TextFromNative("caf\xE9"), "caf\uF7E9");
  EXPECT_EQ(TextFromNative("\x80\xFF"), "\uF780\uF7FF");
}

TEST(NativeText, TakesColonsAndControlCharactersAsTheyAreToo) {
  EXPECT_EQ(NativeFromText("12:30\n"), "12:30\n");
}

TEST(NativeText, ShowsATruePrivateLetterByteByByte) {
  EXPECT_EQ(TextFromNative("\uF05C"), "\uF7EF\uF781\uF79C");
  EXPECT_EQ(NativeFromText("\uF7EF\uF781\uF79C"), "\uF05C");
}

TEST(NativeText, KeepsPrivateLettersThatStandForNothing) {
  for (const std::string name : {"\uF000", "\uF020", "\uF05B", "\uF77F", "\uF700", "\uF800", "\uE000"}) {
    EXPECT_EQ(TextFromNative(name), name);
    EXPECT_EQ(NativeFromText(name), name);
  }
}

TEST(NativeText, RefusesAZeroCharacter) {
  EXPECT_THROW(NativeFromText(std::string("a\0b", 3)), Failure);
}

TEST(NativeText, LeadsBackToEveryNameOfOneByteOrTwo) {
  for (int first = 1; first < 256; ++first) {
    for (int second = 1; second < 256; ++second) {
      const std::string name{static_cast<char>(first), static_cast<char>(second)};
      ASSERT_EQ(NativeFromText(TextFromNative(name)), name);
    }
  }
}

TEST(NativeText, LeadsBackToAnyNameAndIsAlwaysValidText) {
  std::mt19937 random(1);
  // Bytes from which letters of the private-use area arise often.
  const std::string likely = "\xEF\x80\x81\x9C\xBA\x9E\xBF/\\:a\n\xF0\xC3\xA9";
  for (int round = 0; round < 20000; ++round) {
    std::string name;
    for (auto length = random() % 12; length > 0; --length) name += likely[random() % likely.size()];
    const std::string text = TextFromNative(name);
    ASSERT_EQ(NativeFromText(text), name);
    ASSERT_TRUE(IsValidUtf8(text));
    ASSERT_EQ(text.find_first_of("/:\n"), std::string::npos);
  }
}

}  // namespace
}  // namespace qublet

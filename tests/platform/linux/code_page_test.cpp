#include "platform/code_page.h"

#include <gtest/gtest.h>

namespace qublet {
namespace {

TEST(CodePageOnLinux, IsTheWesternOneWithItsFreeBytesAsControlCharacters) {
  const std::string letters =
      "\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\u008D\u017D\u008F"
      "\u0090\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\u009D\u017E\u0178";
  std::string bytes;
  for (int byte = 0x80; byte < 0xA0; ++byte) bytes += static_cast<char>(byte);
  EXPECT_EQ(FromCodePage(bytes), letters);
  EXPECT_EQ(ToCodePage(letters), bytes);
}

TEST(CodePageOnLinux, HasTheLatinLettersAtTheirOwnNumbers) {
  EXPECT_EQ(FromCodePage("\xA0\xE9\xFF"), "\u00A0\u00E9\u00FF");
  EXPECT_EQ(ToCodePage("\u00A0\u00E9\u00FF"), "\xA0\xE9\xFF");
}

TEST(CodePageOnLinux, HasNothingForTheNumbersWhoseByteMeansAnotherCharacter) {
  EXPECT_EQ(ToCodePage("\u0080"), std::nullopt);
  EXPECT_EQ(ToCodePage("\u009F"), std::nullopt);
}

}  // namespace
}  // namespace qublet

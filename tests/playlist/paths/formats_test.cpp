#include "playlist/paths/formats.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/environment.h"

namespace qublet {
namespace {

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();

TEST(YesNoText, IsNoForZeroOnly) {
  EXPECT_EQ(YesNoText(0), "No");
  EXPECT_EQ(YesNoText(1), "Yes");
  EXPECT_EQ(YesNoText(-1), "Yes");
  EXPECT_EQ(YesNoText(true), "Yes");
}

TEST(BoolToFlag, StoresEverythingButZeroAsOne) {
  EXPECT_EQ(BoolToFlag(0), 0);
  EXPECT_EQ(BoolToFlag(-1), 1);
  EXPECT_EQ(BoolToFlag(7), 1);
}

TEST(FlagToBool, IsTrueForExactlyOne) {
  EXPECT_TRUE(FlagToBool(1));
  EXPECT_FALSE(FlagToBool(0));
  EXPECT_FALSE(FlagToBool(-1));
  EXPECT_FALSE(FlagToBool(2));
}

TEST(FormatSize, ChangesUnitAtSixteenKiloAndSixteenMega) {
  const struct {
    std::int64_t bytes;
    const char* expected;
  } cases[] = {{0, "0 Bytes"},
               {1, ""},
               {2, "2 Bytes"},
               {999, "999 Bytes"},
               {1000, "1,000 Bytes"},
               {16384, "16,384 Bytes"},
               {16385, "16 Kb"},
               {16896, "17 Kb"},  // 16.5
               {16895, "16 Kb"},
               {17920, "18 Kb"},  // 17.5
               {16777216, "16,384 Kb"},
               {16777217, "16 Mb"},
               {17301504, "17 Mb"},  // 16.5
               {17301503, "16 Mb"},
               {734003200, "700 Mb"},
               {5000000000, "4,768 Mb"},
               {kMost, "8,796,093,022,208 Mb"},
               {-1, ""},
               {kLeast, ""}};
  for (const auto& c : cases) EXPECT_EQ(FormatSize(c.bytes), c.expected) << c.bytes;
}

TEST(FormatSize, TakesFractions) {
  EXPECT_EQ(FormatSize(1.6), "2 Bytes");
  EXPECT_EQ(FormatSize(1.2), "1 Bytes");
  EXPECT_EQ(FormatSize(0.6), "");
  EXPECT_EQ(FormatSize(16384.4), "16 Kb");
}

TEST(FormatSize, TakesTheSeparatorItIsGiven) {
  EXPECT_EQ(FormatSize(16384, "."), "16.384 Bytes");
  EXPECT_EQ(FormatSize(5000000000, "\u202F"), "4\u202F768 Mb");
  EXPECT_EQ(FormatSize(16384, ""), "16384 Bytes");
}

TEST(UserThousandsSeparator, IsACommaWhereTheLocaleHasNoneOrIsUnknown) {
  const char* before = getenv("LC_ALL");
  const std::string kept = before != nullptr ? before : "";
  for (const char* locale : {"C", "C.UTF-8", "POSIX", "no such locale"}) {
    setenv("LC_ALL", locale, 1);
    EXPECT_EQ(UserThousandsSeparator(), ",") << locale;
  }
  setenv("LC_ALL", kept.c_str(), 1);
}

TEST(FormatTime, ShowsHoursOnlyFromOneOn) {
  const struct {
    std::int64_t seconds;
    const char* expected;
  } cases[] = {{0, "0:00"},         {5, "0:05"},           {9, "0:09"},
               {10, "0:10"},        {59, "0:59"},          {60, "1:00"},
               {65, "1:05"},        {600, "10:00"},        {3599, "59:59"},
               {3600, "1:00:00"},   {3661, "1:01:01"},     {36610, "10:10:10"},
               {90000, "25:00:00"}, {360000, "100:00:00"}, {10000000000, "2777777:46:40"}};
  for (const auto& c : cases) EXPECT_EQ(FormatTime(c.seconds), c.expected) << c.seconds;
}

TEST(FormatTime, TakesEveryNumberOfSeconds) {
  EXPECT_EQ(FormatTime(kMost), "2562047788015215:30:07");
  EXPECT_EQ(FormatTime(-5), "0:0-5");
  EXPECT_FALSE(FormatTime(kLeast).empty());
}

TEST(CleanTagText, LeavesLettersDigitsAndSingleBlanks) {
  const struct {
    const char *text, *expected;
  } cases[] = {{"Abba - Gold 01", "Abba Gold 01"},
               {"  trimmed  ", "trimmed"},
               {"(live)", " live "},
               {"a  b   c", "a b c"},
               {"a - - b", "a b"},
               {"Beyonc\u00E9", "Beyonc "},
               {"M\u00F6torhead", "M torhead"},
               {"\u0416\u0416", " "},
               {"a\u20ACb", "a b"},
               {"a_b-c.d", "a b c d"},
               {"a\xFF"
                "b",
                "a b"},
               {"\ttab", " tab"},
               {"", ""},
               {"   ", ""},
               {"!!!", " "},
               {" ! ", " "}};
  for (const auto& c : cases) EXPECT_EQ(CleanTagText(c.text), c.expected) << c.text;
}

TEST(CleanTagText, KeepsExactlySixtyThreeCharacters) {
  int kept = 0;
  for (int code = 0; code < 256; ++code) {
    const std::string text = std::string("x") + static_cast<char>(code) + "x";
    kept += CleanTagText(text) == text;
  }
  EXPECT_EQ(kept, 63);
}

}  // namespace
}  // namespace qublet

#include "playlist/paths/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace qublet {
namespace {

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();

TEST(CheckedMultiply32, GivesTheProductUpToTheLastThatFits) {
  EXPECT_EQ(CheckedMultiply32(46340, 46340), 2147395600);
  EXPECT_EQ(CheckedMultiply32(-65536, 32768), kLeast);
  EXPECT_EQ(CheckedMultiply32(kLeast, 0), 0);
}

TEST(CheckedMultiply32, FailsWhenTheProductDoesNotFit) {
  EXPECT_THROW(CheckedMultiply32(46341, 46341), Failure);
  EXPECT_THROW(CheckedMultiply32(kLeast, -1), Failure);
  EXPECT_THROW(CheckedMultiply32(kMost, kMost), Failure);
}

TEST(ToInteger, KeepsWhatFitsAndFailsBeyond) {
  EXPECT_EQ(ToInteger16(32767), 32767);
  EXPECT_EQ(ToInteger16(-32768), -32768);
  EXPECT_THROW(ToInteger16(32768), Failure);
  EXPECT_THROW(ToInteger16(-32769), Failure);
  EXPECT_EQ(ToInteger32(kMost), kMost);
  EXPECT_EQ(ToInteger32(kLeast), kLeast);
  EXPECT_THROW(ToInteger32(std::int64_t{kMost} + 1), Failure);
  EXPECT_THROW(ToInteger32(std::int64_t{kLeast} - 1), Failure);
}

TEST(RoundHalfEven, TakesTheEvenNeighbourOfAHalf) {
  const struct {
    double value;
    std::int32_t expected;
  } cases[] = {{0.5, 0},
               {1.5, 2},
               {2.5, 2},
               {3.5, 4},
               {-0.5, 0},
               {-1.5, -2},
               {-2.5, -2},
               {2.49, 2},
               {2.51, 3},
               {0, 0},
               {1e9 + .5, 1000000000},
               {kMost, kMost},
               {kMost + 0.4, kMost},
               {kLeast - 0.5, kLeast}};
  for (const auto& c : cases) EXPECT_EQ(RoundHalfEven(c.value), c.expected) << c.value;
}

TEST(RoundHalfEven, FailsOutsideTheRangeAndForWhatIsNoNumber) {
  EXPECT_THROW(RoundHalfEven(kMost + 0.5), Failure);
  EXPECT_THROW(RoundHalfEven(kLeast - 0.6), Failure);
  EXPECT_THROW(RoundHalfEven(1e300), Failure);
  EXPECT_THROW(RoundHalfEven(std::nan("")), Failure);
  EXPECT_THROW(RoundHalfEven(-INFINITY), Failure);
}

TEST(TextToInteger, TakesADecimalNumberWithBlanksSignFractionAndExponent) {
  const struct {
    const char* text;
    std::int16_t expected;
  } cases[] = {{"0", 0},   {"12", 12},    {" 12 ", 12},     {"-7", -7},         {"+7", 7},         {"007", 7},
               {"2.5", 2}, {"3.5", 4},    {".5", 0},        {"5.", 5},          {"1e2", 100},      {"1.5E+1", 15},
               {"-.5", 0}, {"1e-400", 0}, {"32767", 32767}, {"32767.4", 32767}, {"-32768", -32768}};
  for (const auto& c : cases) {
    EXPECT_EQ(TextToInteger16(c.text), c.expected) << c.text;
    EXPECT_EQ(TextToInteger32(c.text), c.expected) << c.text;
  }
}

TEST(TextToInteger, FailsForEverythingElse) {
  for (const char* text : {"",  " ",  "a",  "12a",  "a12", "1 2", "1,5",  "--1",  "+-1", "+ 1",  "-",
                           ".", "e5", "1e", "0x10", "inf", "nan", "-inf", "&H10", "\t1", "1e400"}) {
    EXPECT_THROW(TextToInteger16(text), Failure) << text;
    EXPECT_THROW(TextToInteger32(text), Failure) << text;
  }
}

TEST(TextToInteger, FailsForANumberThatDoesNotFit) {
  EXPECT_THROW(TextToInteger16("32768"), Failure);
  EXPECT_THROW(TextToInteger16("32767.5"), Failure);
  EXPECT_THROW(TextToInteger16("-32769"), Failure);
  EXPECT_EQ(TextToInteger32("2147483647"), kMost);
  EXPECT_THROW(TextToInteger32("2147483648"), Failure);
  EXPECT_THROW(TextToInteger32("99999999999999999999"), Failure);
}

TEST(LeadingNumber, TakesTheNumberThatATextBeginsWith) {
  const struct {
    const char* text;
    double expected;
  } cases[] = {{"5/12", 5}, {"", 0},    {"abc", 0}, {"  7 of 9", 7}, {"-3x", -3},   {"+4", 4},  {"2.75kg", 2.75},
               {".5", 0.5}, {".", 0},   {"-", 0},   {"1e3", 1000},   {"1e", 1},     {"1ex", 1}, {"0x10", 0},
               {"inf", 0},  {"nan", 0}, {"007", 7}, {"\t8", 8},      {"1e-400", 0}, {" ", 0},   {"--1", 0}};
  for (const auto& c : cases) EXPECT_EQ(LeadingNumber(c.text), c.expected) << c.text;
}

TEST(LeadingNumber, StaysFiniteForANumberBeyondAllRanges) {
  EXPECT_EQ(LeadingNumber("1e400 x"), std::numeric_limits<double>::max());
  EXPECT_EQ(LeadingNumber("-" + std::string(500, '9')), std::numeric_limits<double>::lowest());
  EXPECT_EQ(LeadingNumber("0." + std::string(500, '0') + "1"), 0);
}

TEST(NumberText, WritesNoExponentAndNoNeedlessZeros) {
  const struct {
    double value;
    const char* expected;
  } cases[] = {{44100, "44100"},    {0.5, "0.5"}, {0, "0"},       {-0.0, "0"},
               {-2.25, "-2.25"},    {0.1, "0.1"}, {44.1, "44.1"}, {1e15, "1000000000000000"},
               {1e-7, "0.0000001"}, {100, "100"}, {NAN, "0"},     {INFINITY, "0"}};
  for (const auto& c : cases) EXPECT_EQ(NumberText(c.value), c.expected);
  EXPECT_EQ(NumberText(1e300).size(), 301u);
  EXPECT_EQ(NumberText(-5e-324).size(), 327u);
}

TEST(PadNumberToWidth, FillsUpToTheWidthOfTheOtherNumber) {
  const struct {
    std::int16_t value, width_value;
    const char* expected;
  } cases[] = {{1, 9, "1"},     {1, 10, "01"},   {7, 9999, "0007"},      {12, 100, "012"},
               {0, 999, "000"}, {100, 9, "100"}, {12345, 9999, "12345"}, {-5, 100, "0-5"},
               {-5, 9, "-5"},   {5, -1, "05"},   {32767, 1, "32767"},    {-32768, 32767, "-32768"}};
  for (const auto& c : cases) EXPECT_EQ(PadNumberToWidth(c.value, c.width_value), c.expected);
}

TEST(SaturatingAdd, EndsAtTheLargestNumber) {
  constexpr std::int64_t kLargest = std::numeric_limits<std::int64_t>::max();
  EXPECT_EQ(SaturatingAdd(1, 2), 3);
  EXPECT_EQ(SaturatingAdd(kLargest - 1, 1), kLargest);
  EXPECT_EQ(SaturatingAdd(kLargest, 1), kLargest);
  EXPECT_EQ(SaturatingAdd(1, kLargest), kLargest);
  EXPECT_EQ(SaturatingAdd(kLargest, kLargest), kLargest);
}

TEST(NearestWhole, EndsAtTheLargestAndSmallestNumber) {
  EXPECT_EQ(NearestWhole(2.5), 3);
  EXPECT_EQ(NearestWhole(-2.4), -2);
  EXPECT_EQ(NearestWhole(1.8e19), std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(NearestWhole(9223372036854775807.0), std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(NearestWhole(-1.8e19), std::numeric_limits<std::int64_t>::min());
}

}  // namespace
}  // namespace qublet

#include "settings/setting_rows.h"

#include <gtest/gtest.h>

#include <map>

namespace qublet {
namespace {

using enum SettingCode;

const SettingRow& Row(SettingCode code) {
  static const std::map<SettingCode, const SettingRow*> rows = {{kWord, FindSettingRow("ToolB", "Flat")},
                                                                {kFlag, FindSettingRow("VE", "TA")},
                                                                {kInteger16, FindSettingRow("PS", "H")},
                                                                {kInteger32, FindSettingRow("SSE", "PLTTP")},
                                                                {kText, FindSettingRow("TableFont", "Name")}};
  return *rows.at(code);
}

struct Reading {
  SettingCode code;
  std::string text;
  std::optional<SettingValue> value;
};

class ReadSettingTest : public testing::TestWithParam<Reading> {};

TEST_P(ReadSettingTest, TakesWhatItsCodeTakes) {
  EXPECT_EQ(ReadSetting(Row(GetParam().code), GetParam().text), GetParam().value) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(Words, ReadSettingTest,
                         testing::Values(Reading{kWord, "True", true}, Reading{kWord, "False", false},
                                         Reading{kWord, "TRUE", true}, Reading{kWord, "fALSE", false},
                                         Reading{kWord, " true ", true}, Reading{kWord, "1", true},
                                         Reading{kWord, "-1", true}, Reading{kWord, "0", false},
                                         Reading{kWord, "0.0", false}, Reading{kWord, "0.25", true},
                                         Reading{kWord, "1e30", true}, Reading{kWord, "", std::nullopt},
                                         Reading{kWord, "Yes", std::nullopt}, Reading{kWord, "Tru", std::nullopt},
                                         Reading{kWord, "1x", std::nullopt}, Reading{kWord, "inf", std::nullopt}));

INSTANTIATE_TEST_SUITE_P(Flags, ReadSettingTest,
                         testing::Values(Reading{kFlag, "1", true}, Reading{kFlag, "0", false},
                                         Reading{kFlag, "-1", false}, Reading{kFlag, "2", false},
                                         Reading{kFlag, " 1 ", true}, Reading{kFlag, "1.0", true},
                                         Reading{kFlag, "True", std::nullopt}, Reading{kFlag, "", std::nullopt},
                                         Reading{kFlag, "99999999999", std::nullopt}));

INSTANTIATE_TEST_SUITE_P(
    Integers16, ReadSettingTest,
    testing::Values(Reading{kInteger16, "6000", 6000}, Reading{kInteger16, "-5", -5}, Reading{kInteger16, "2.5", 2},
                    Reading{kInteger16, "3.5", 4}, Reading{kInteger16, "1e3", 1000},
                    Reading{kInteger16, "32767", 32767}, Reading{kInteger16, "-32768", -32768},
                    Reading{kInteger16, "32768", std::nullopt}, Reading{kInteger16, "wide", std::nullopt},
                    Reading{kInteger16, "12 px", std::nullopt}, Reading{kInteger16, "", std::nullopt}));

INSTANTIATE_TEST_SUITE_P(Integers32, ReadSettingTest,
                         testing::Values(Reading{kInteger32, "2147483647", 2147483647},
                                         Reading{kInteger32, "-2147483648", std::numeric_limits<std::int32_t>::min()},
                                         Reading{kInteger32, "2147483648", std::nullopt},
                                         Reading{kInteger32, "0.5", 0}, Reading{kInteger32, "&H10", std::nullopt},
                                         Reading{kInteger32, "", std::nullopt}));

INSTANTIATE_TEST_SUITE_P(Texts, ReadSettingTest,
                         testing::Values(Reading{kText, "Tahoma", "Tahoma"}, Reading{kText, " ", " "},
                                         Reading{kText, "", std::nullopt},
                                         Reading{kText, std::string(101, 'x'), std::string(100, 'x')}));

TEST(ReadSetting, CutsATextByCharactersAndNotInsideOne) {
  std::string text;
  for (int i = 0; i < 120; ++i) text += "\xC3\xA9";
  EXPECT_EQ(ReadSetting(Row(kText), text), SettingValue(text.substr(0, 200)));
}

TEST(WriteSetting, WritesEachCodeItsOwnWay) {
  EXPECT_EQ(WriteSetting(Row(kWord), true), "True");
  EXPECT_EQ(WriteSetting(Row(kWord), false), "False");
  EXPECT_EQ(WriteSetting(Row(kFlag), true), "1");
  EXPECT_EQ(WriteSetting(Row(kFlag), false), "0");
  EXPECT_EQ(WriteSetting(Row(kInteger16), -32768), "-32768");
  EXPECT_EQ(WriteSetting(Row(kInteger32), 2147483647), "2147483647");
  EXPECT_EQ(WriteSetting(Row(kText), std::string("  two words ")), "two words");
}

TEST(WriteSetting, CutsATextToItsLength) {
  const std::string longer = "\u00E9" + std::string(150, 'x');
  EXPECT_EQ(WriteSetting(*FindSettingRow("TableFont", "Name"), " " + longer), "\u00E9" + std::string(99, 'x'));
  EXPECT_EQ(WriteSetting(*FindSettingRow("SSE", "Idir"), longer), longer);
}

TEST(SettingRows, NameEachKeyOnce) {
  for (const SettingRow& row : SettingRows()) EXPECT_EQ(FindSettingRow(row.section, row.key), &row);
}

TEST(SettingRows, HaveDefaultsWithinTheirBounds) {
  int numbers = 0;
  for (const SettingRow& row : SettingRows()) {
    const SettingValue value = ReadSetting(row, row.default_text).value_or(SettingValue(row.limits.least));
    const auto* number = std::get_if<std::int32_t>(&value);
    numbers += number != nullptr;
    EXPECT_TRUE(number == nullptr || (row.limits.least <= *number && *number <= row.limits.most)) << row.key;
  }
  EXPECT_GT(numbers, 20);
}

TEST(FindSettingRow, GivesNothingForAForeignKey) {
  EXPECT_EQ(FindSettingRow("RF", "W"), nullptr);
  EXPECT_EQ(FindSettingRow("sse", "V"), nullptr);
  EXPECT_EQ(FindSettingRow("Menu", "V"), nullptr);
}

}  // namespace
}  // namespace qublet

#include "tools/rename/rename_config.h"

#include <gtest/gtest.h>

namespace qublet {
namespace {

const std::string kMarker = "\xC2\x8F";

std::string Times(const std::string& text, int count) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

TEST(RenameConfig, BeginsWithTheDefaults) {
  const RenameConfig config;
  EXPECT_TRUE(config.Capitalise);
  EXPECT_TRUE(config.Extension);
  EXPECT_FALSE(config.Increment);
  EXPECT_TRUE(config.IncPos);
  EXPECT_FALSE(config.Truncat);
  EXPECT_EQ(config.Truncval, 32);
  EXPECT_FALSE(config.LowFilename);
  EXPECT_FALSE(config.RenID3);
  EXPECT_FALSE(config.RemNumbers);
  EXPECT_EQ(config.ToReplace[0], "_" + Times(kMarker, 99));
  EXPECT_EQ(config.ReplaceTo[0], " " + Times(kMarker, 99));
  EXPECT_TRUE(config.RuleActive[0]);
  for (std::size_t slot = 1; slot < kRuleSlots; ++slot) {
    EXPECT_EQ(config.ToReplace[slot], std::string(100, ' '));
    EXPECT_EQ(config.ReplaceTo[slot], std::string(100, ' '));
    EXPECT_FALSE(config.RuleActive[slot]);
  }
}

TEST(RenameConfig, GetsItsDefaultsBack) {
  RenameConfig config;
  PutRule(config, 3, {"a", "b"}, true);
  config.Truncval = 7;
  config.RenID3 = true;
  SetRenameDefaults(config);
  EXPECT_EQ(config, RenameConfig());
}

TEST(PadRuleText, FillsUpWithMarkers) {
  EXPECT_EQ(PadRuleText("ab", 4), "ab" + kMarker + kMarker);
  EXPECT_EQ(PadRuleText("", 2), kMarker + kMarker);
}

TEST(PadRuleText, CountsCharactersAndNotBytes) {
  EXPECT_EQ(PadRuleText("ß字", 3), "ß字" + kMarker);
}

TEST(PadRuleText, LeavesATextThatIsLongEnough) {
  EXPECT_EQ(PadRuleText("abc", 3), "abc");
  EXPECT_EQ(PadRuleText("abcd", 3), "abcd");
}

TEST(RuleText, IsWhatStandsBesideTheMarkers) {
  EXPECT_EQ(RuleText("a b " + kMarker), "a b ");
  EXPECT_EQ(RuleText("a" + kMarker + "b"), "ab");
  EXPECT_EQ(RuleText(kMarker), "");
}

TEST(RuleText, IsEmptyWithoutAMarker) {
  EXPECT_EQ(RuleText(std::string(100, ' ')), "");
  EXPECT_EQ(RuleText("letters"), "");
}

TEST(RuleSlot, HoldsNinetyNineCharacters) {
  RenameConfig config;
  const std::string longest = Times("é", 99);
  PutRule(config, 20, {longest, "x "}, true);
  EXPECT_EQ(RuleInSlot(config, 20), (RenameRule{longest, "x "}));
  EXPECT_TRUE(config.RuleActive[20]);
}

TEST(RuleSlot, OfAHundredCharactersReadsAsEmpty) {
  RenameConfig config;
  PutRule(config, 1, {std::string(100, 'x'), "y"}, true);
  EXPECT_EQ(RuleInSlot(config, 1), (RenameRule{"", "y"}));
}

TEST(RemoveSlot, MovesTheHigherSlotsDown) {
  RenameConfig config;
  for (std::size_t slot = 0; slot < kRuleSlots; ++slot)
    PutRule(config, slot, {std::to_string(slot), ""}, slot % 2 == 0);
  RemoveSlot(config, 3);
  EXPECT_EQ(RuleInSlot(config, 2).from, "2");
  EXPECT_EQ(RuleInSlot(config, 3).from, "4");
  EXPECT_TRUE(config.RuleActive[3]);
  EXPECT_EQ(RuleInSlot(config, 19).from, "20");
  EXPECT_EQ(config.ToReplace[20], std::string(100, ' '));
  EXPECT_EQ(config.ReplaceTo[20], std::string(100, ' '));
  EXPECT_FALSE(config.RuleActive[20]);
}

TEST(RemoveSlot, EmptiesTheLastSlot) {
  RenameConfig config;
  PutRule(config, 20, {"a", "b"}, true);
  RemoveSlot(config, 20);
  EXPECT_EQ(config, RenameConfig());
}

TEST(RuleRowText, TellsTheKindOfARule) {
  EXPECT_EQ(RuleRowText({"a", "b"}), "Replace 'a' with 'b'");
  EXPECT_EQ(RuleRowText({"", "b"}), "Add 'b'");
  EXPECT_EQ(RuleRowText({"a", ""}), "Remove 'a'");
}

TEST(RenameSummary, OfTheDefaults) {
  EXPECT_EQ(BuildRenameSummary({}),
            (std::vector<std::string>{
                "The extension will be made lower case.", "'_' in the filename will be replaced with ' '.",
                "Words will be formatted to start with a capital letter.",
                "The filename will be validated and rebuilt", "The file will be renamed and the change logged."}));
}

TEST(RenameSummary, OfEverything) {
  RenameConfig config;
  config.Increment = config.Truncat = config.LowFilename = config.RenID3 = config.RemNumbers = true;
  config.Truncval = 300;
  PutRule(config, 1, {"", "!"}, true);
  PutRule(config, 2, {"live", ""}, true);
  PutRule(config, 3, {"off", ""}, false);
  PutRule(config, 4, {"same", "same"}, true);
  EXPECT_EQ(
      BuildRenameSummary(config),
      (std::vector<std::string>{
          "The extension will be made lower case.", "The filename will be created from ID3v1/2 Data.",
          "'_' in the filename will be replaced with ' '.", "'!' will be added to the end of the filename.",
          "'live' will be removed from the filename.", "Any number characters will be removed.",
          "Words will be formatted to start with a capital letter.", "The filename will be made lowercase.",
          "Numbers will be added to the start of each file.", "The filename will be truncated to 300 characters.",
          "The filename will be validated and rebuilt", "The file will be renamed and the change logged."}));
  config.IncPos = false;
  EXPECT_EQ(BuildRenameSummary(config)[8], "Numbers will be added to the end of each file.");
}

TEST(RenameSummary, OfNothingHasTheTwoLastSentences) {
  RenameConfig config;
  config.Extension = config.Capitalise = config.RuleActive[0] = false;
  EXPECT_EQ(BuildRenameSummary(config).size(), 2u);
}

}  // namespace
}  // namespace qublet

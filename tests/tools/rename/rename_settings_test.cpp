#include "tools/rename/rename_settings.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "support/temporary_drives.h"

namespace qublet {
namespace {

// Made by hand: the defaults as this version writes them.
std::string DefaultRecord() {
  const std::string yes = "\xFF\xFF";
  const std::string no(2, '\0');
  std::string record = yes + yes + no + yes;
  for (const char* first : {"_", " "}) {
    record += first + std::string(99, '\x8F');
    record += std::string(20 * 100, ' ');
  }
  record += yes;
  for (int slot = 1; slot <= 20; ++slot) record += no;
  record += no + std::string("\x20\0\0\0", 4) + no + no + no + "21";
  return record;
}

class RenameSettingsTest : public testing::Test {
 protected:
  TemporaryDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
};

TEST_F(RenameSettingsTest, WritesTheDefaultsByteForByte) {
  RenameConfig config;
  EXPECT_TRUE(WriteRenameSettings(*files_, "c:\\a.rps", config));
  EXPECT_EQ(DefaultRecord().size(), 4264u);
  EXPECT_EQ(drives_.Read("a.rps"), DefaultRecord());
  EXPECT_EQ(config.Version, "21");
}

struct FieldPlace {
  const char* name;
  std::size_t offset;
  void (*set)(RenameConfig& config);
  std::string bytes;
};

class RenameSettingsField : public RenameSettingsTest, public testing::WithParamInterface<FieldPlace> {};

TEST_P(RenameSettingsField, StandsAtItsPlace) {
  RenameConfig config;
  GetParam().set(config);
  config.Version = "21";
  std::string wanted = DefaultRecord();
  wanted.replace(GetParam().offset, GetParam().bytes.size(), GetParam().bytes);
  EXPECT_EQ(RenameRecord(config), wanted);
  EXPECT_EQ(RenameConfigOf(wanted), config);
}

const std::string kNo(2, '\0');
const std::string kYes = "\xFF\xFF";

INSTANTIATE_TEST_SUITE_P(
    , RenameSettingsField,
    testing::Values(
        FieldPlace{"Capitalise", 0, [](RenameConfig& c) { c.Capitalise = false; }, kNo},
        FieldPlace{"Extension", 2, [](RenameConfig& c) { c.Extension = false; }, kNo},
        FieldPlace{"Increment", 4, [](RenameConfig& c) { c.Increment = true; }, kYes},
        FieldPlace{"IncPos", 6, [](RenameConfig& c) { c.IncPos = false; }, kNo},
        FieldPlace{"ToReplace1", 108, [](RenameConfig& c) { c.ToReplace[1] = PadRuleText("a ", 100); },
                   "a " + std::string(98, '\x8F')},
        FieldPlace{"ToReplace20", 2008, [](RenameConfig& c) { c.ToReplace[20] = PadRuleText("\xC3\xA9", 100); },
                   "\xE9" + std::string(99, '\x8F')},
        FieldPlace{"ReplaceTo20", 4108, [](RenameConfig& c) { c.ReplaceTo[20] = PadRuleText("z", 100); },
                   "z" + std::string(99, '\x8F')},
        FieldPlace{"RuleActive0", 4208, [](RenameConfig& c) { c.RuleActive[0] = false; }, kNo},
        FieldPlace{"RuleActive20", 4248, [](RenameConfig& c) { c.RuleActive[20] = true; }, kYes},
        FieldPlace{"Truncat", 4250, [](RenameConfig& c) { c.Truncat = true; }, kYes},
        FieldPlace{"Truncval", 4252, [](RenameConfig& c) { c.Truncval = -2; }, "\xFE\xFF\xFF\xFF"},
        FieldPlace{"TruncvalHigh", 4252, [](RenameConfig& c) { c.Truncval = 0x12345678; }, "\x78\x56\x34\x12"},
        FieldPlace{"LowFilename", 4256, [](RenameConfig& c) { c.LowFilename = true; }, kYes},
        FieldPlace{"RenID3", 4258, [](RenameConfig& c) { c.RenID3 = true; }, kYes},
        FieldPlace{"RemNumbers", 4260, [](RenameConfig& c) { c.RemNumbers = true; }, kYes}),
    [](const auto& place) { return place.param.name; });

TEST_F(RenameSettingsTest, ReadsBackWhatItWrote) {
  RenameConfig config;
  config.RenID3 = config.Truncat = true;
  config.Truncval = 5;
  PutRule(config, 4, {"Ä ", "€"}, true);
  ASSERT_TRUE(WriteRenameSettings(*files_, "c:\\a.rps", config));
  RenameConfig read;
  EXPECT_TRUE(ReadRenameSettings(*files_, "c:\\a.rps", read));
  EXPECT_EQ(read, config);
}

TEST_F(RenameSettingsTest, WritesAQuestionMarkForACharacterOutsideTheCodePage) {
  RenameConfig config;
  PutRule(config, 0, {"a字b", "Ж"}, true);
  const std::string record = RenameRecord(config);
  EXPECT_EQ(record.substr(8, 100), "a?b" + std::string(97, '\x8F'));
  EXPECT_EQ(record.substr(2108, 100), "?" + std::string(99, '\x8F'));
  EXPECT_EQ(RuleInSlot(config, 0).from, "a字b") << "what is in memory stays";
}

TEST_F(RenameSettingsTest, KeepsATextWithoutAMarkerAsItIs) {
  std::string record = DefaultRecord();
  record.replace(108, 100, std::string(100, 'x'));
  const RenameConfig config = RenameConfigOf(record);
  EXPECT_EQ(RuleInSlot(config, 1).from, "");
  EXPECT_EQ(RenameRecord(config), record);
}

TEST_F(RenameSettingsTest, TakesEveryNumberButZeroForTrue) {
  std::string record = DefaultRecord();
  record.replace(4, 2, std::string("\x01\0", 2));
  EXPECT_TRUE(RenameConfigOf(record).Increment);
}

TEST_F(RenameSettingsTest, KeepsTheTailOfALongerFile) {
  drives_.Write("a.rps", std::string(4264, 'x') + "tail");
  RenameConfig config;
  EXPECT_TRUE(WriteRenameSettings(*files_, "c:\\a.rps", config));
  EXPECT_EQ(drives_.Read("a.rps"), DefaultRecord() + "tail");
  EXPECT_TRUE(ReadRenameSettings(*files_, "c:\\a.rps", config));
}

TEST_F(RenameSettingsTest, ReplacesAShorterFile) {
  drives_.Write("a.rps", "short");
  RenameConfig config;
  EXPECT_TRUE(WriteRenameSettings(*files_, "c:\\a.rps", config));
  EXPECT_EQ(drives_.Read("a.rps"), DefaultRecord());
}

TEST_F(RenameSettingsTest, SaysWhyNothingCanBeWritten) {
  RenameConfig config;
  EXPECT_FALSE(WriteRenameSettings(*files_, "c:\\no folder\\a.rps", config));
  std::filesystem::create_directory(drives_.C() / "folder.rps");
  EXPECT_FALSE(WriteRenameSettings(*files_, "c:\\folder.rps", config));
}

TEST_F(RenameSettingsTest, RefusesAnotherVersionButHoldsItsRecord) {
  std::string record = DefaultRecord();
  record.replace(4262, 2, "20").replace(4, 2, "\xFF\xFF");
  drives_.Write("a.rps", record);
  RenameConfig config;
  EXPECT_FALSE(ReadRenameSettings(*files_, "c:\\a.rps", config));
  EXPECT_TRUE(config.Increment);
  EXPECT_EQ(config.Version, "20");
}

TEST_F(RenameSettingsTest, TakesWhatAShortFileLacksForZero) {
  drives_.Write("a.rps", DefaultRecord().substr(0, 3));
  RenameConfig config;
  EXPECT_FALSE(ReadRenameSettings(*files_, "c:\\a.rps", config));
  EXPECT_TRUE(config.Capitalise);
  EXPECT_TRUE(config.Extension) << "0x00FF isn't 0";
  EXPECT_FALSE(config.IncPos);
  EXPECT_EQ(RuleInSlot(config, 0), RenameRule{});
  EXPECT_EQ(config.Truncval, 0);
  EXPECT_EQ(config.Version, std::string(2, '\0'));
}

TEST_F(RenameSettingsTest, LeavesTheRecordWhenThereIsNoFile) {
  RenameConfig config;
  config.RenID3 = true;
  std::filesystem::create_directory(drives_.C() / "folder.rps");
  EXPECT_FALSE(ReadRenameSettings(*files_, "c:\\gone.rps", config));
  EXPECT_FALSE(ReadRenameSettings(*files_, "c:\\folder.rps", config));
  EXPECT_TRUE(config.RenID3);
}

}  // namespace
}  // namespace qublet

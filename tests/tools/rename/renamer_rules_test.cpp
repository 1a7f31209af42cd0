#include <gtest/gtest.h>

#include "support/rename_test_base.h"
#include "tools/rename/rename_settings.h"

namespace qublet {
namespace {

using Message = ScriptedDialogs::Message;

class RenamerRulesTest : public RenameTestBase {
 protected:
  std::string Rules() const {
    std::string text;
    for (const RuleRow& row : renamer_.view.RuleList) text += (row.ticked ? "[x] " : "[ ] ") + row.text + "\n";
    return text;
  }
  std::string Active() const {
    std::string letters;
    for (const bool active : renamer_.Config().RuleActive) letters += active ? 'x' : '-';
    return letters;
  }
  void Fill(std::size_t count) {
    while (renamer_.view.RuleList.size() < count)
      renamer_.AddRule_Click("rule " + std::to_string(renamer_.view.RuleList.size()), "");
  }
  void Load(const RenameConfig& config) {
    RenameConfig saved = config;
    ASSERT_TRUE(WriteRenameSettings(*files_, "c:\\loaded.rps", saved));
    fakes_.dialogs.open_names = {"c:\\loaded.rps"};
    renamer_.RulesLoad_Click();
  }
  std::vector<std::string> Told() const {
    std::vector<std::string> texts;
    for (const Message& message : fakes_.dialogs.messages) texts.push_back(message.text);
    return texts;
  }

  Renamer renamer_{engine_};
};

constexpr const char* kFull = "A maximum of 20 rules only can be added!   ";
constexpr const char* kSame = "Text in both fields are the same, the rule will not perform any useful function.   ";
constexpr const char* kActive = "This rule has already been added and is active.   ";

TEST_F(RenamerRulesTest, BeginsWithTheDefaults) {
  EXPECT_EQ(Rules(), "[x] Replace '_' with ' '\n");
  EXPECT_EQ(renamer_.view.Test1, "SAmPle File_naMe.MP3");
  EXPECT_EQ(renamer_.view.Test2, "");
}

TEST_F(RenamerRulesTest, AddsTheThreeKindsOfRules) {
  renamer_.AddRule_Click("a", "b");
  renamer_.AddRule_Click("", "c ");
  renamer_.AddRule_Click("d", "");
  EXPECT_EQ(Rules(), "[x] Replace '_' with ' '\n[x] Replace 'a' with 'b'\n[x] Add 'c '\n[x] Remove 'd'\n");
  EXPECT_EQ(RuleInSlot(renamer_.Config(), 1), (RenameRule{"a", "b"}));
  EXPECT_EQ(RuleInSlot(renamer_.Config(), 2), (RenameRule{"", "c "}));
  EXPECT_EQ(RuleInSlot(renamer_.Config(), 3), (RenameRule{"d", ""}));
  EXPECT_EQ(Active().substr(0, 5), "xxxx-");
  EXPECT_TRUE(Told().empty());
}

TEST_F(RenamerRulesTest, SaysNothingToTwoEmptyTexts) {
  renamer_.AddRule_Click("", "");
  EXPECT_EQ(renamer_.view.RuleList.size(), 1u);
  EXPECT_TRUE(Told().empty());
}

TEST_F(RenamerRulesTest, RefusesTwoEqualTexts) {
  renamer_.AddRule_Click("a", "a");
  EXPECT_EQ(renamer_.view.RuleList.size(), 1u);
  EXPECT_EQ(fakes_.dialogs.messages, (std::vector<Message>{{kSame, MessageIcon::kInformation, MessageButtons::kOk}}));
}

TEST_F(RenamerRulesTest, DropsATypedMarker) {
  renamer_.AddRule_Click("a\xC2\x8F",
                         "\xC2\x8F"
                         "b");
  EXPECT_EQ(RuleInSlot(renamer_.Config(), 1), (RenameRule{"a", "b"}));
  renamer_.AddRule_Click("\xC2\x8F", "");
  EXPECT_EQ(renamer_.view.RuleList.size(), 2u);
}

TEST_F(RenamerRulesTest, StopsAtNineteenRows) {
  Fill(19);
  ASSERT_EQ(renamer_.view.RuleList.size(), 19u);
  EXPECT_TRUE(Told().empty());
  renamer_.AddRule_Click("one more", "");
  EXPECT_EQ(Told(), (std::vector<std::string>{kFull}));
  renamer_.AddRule_Click("same", "same");
  EXPECT_EQ(Told(), (std::vector<std::string>{kFull, kFull, kSame}));
  renamer_.AddRule_Click("", "");
  EXPECT_EQ(Told(), (std::vector<std::string>{kFull, kFull, kSame, kFull}));
  renamer_.AddRule_Click("rule 3", "");
  EXPECT_EQ(Told().back(), kFull) << "a rule that is there already is refused like any other";
  EXPECT_EQ(renamer_.view.RuleList.size(), 19u);
}

TEST_F(RenamerRulesTest, SaysNothingWithMoreThanNineteenRows) {
  RenameConfig config;
  for (std::size_t slot = 0; slot < 20; ++slot) PutRule(config, slot, {"r" + std::to_string(slot), ""}, false);
  Load(config);
  ASSERT_EQ(renamer_.view.RuleList.size(), 20u);
  renamer_.AddRule_Click("one more", "");
  EXPECT_TRUE(Told().empty());
  renamer_.AddRule_Click("same", "same");
  EXPECT_EQ(Told(), (std::vector<std::string>{kSame}));
  EXPECT_EQ(renamer_.view.RuleList.size(), 20u);
}

TEST_F(RenamerRulesTest, TicksARuleThatIsThereAlready) {
  renamer_.AddRule_Click("a", "b");
  renamer_.RuleList_ItemCheck(1, false);
  EXPECT_EQ(Active().substr(0, 2), "x-");
  renamer_.AddRule_Click("a", "b");
  EXPECT_EQ(Rules(), "[x] Replace '_' with ' '\n[x] Replace 'a' with 'b'\n");
  EXPECT_EQ(Active().substr(0, 3), "xx-");
  EXPECT_TRUE(Told().empty());
  renamer_.AddRule_Click("a", "b");
  EXPECT_EQ(fakes_.dialogs.messages,
            (std::vector<Message>{{kActive, MessageIcon::kInformation, MessageButtons::kOk}}));
}

TEST_F(RenamerRulesTest, TakesAnAddOrRemoveRuleOfTheSameTextForACopy) {
  renamer_.AddRule_Click("", "b");
  renamer_.AddRule_Click("a", "b");
  EXPECT_EQ(Told(), (std::vector<std::string>{kActive}));
  renamer_.AddRule_Click("c", "");
  renamer_.AddRule_Click("c", "d");
  EXPECT_EQ(Told(), (std::vector<std::string>{kActive, kActive}));
  EXPECT_EQ(renamer_.view.RuleList.size(), 3u);
}

TEST_F(RenamerRulesTest, TheLastCopyCounts) {
  renamer_.AddRule_Click("", "b");
  renamer_.AddRule_Click("a", "");
  renamer_.RuleList_ItemCheck(1, false);
  renamer_.RuleList_ItemCheck(2, false);
  renamer_.AddRule_Click("a", "b");
  EXPECT_EQ(Rules(), "[x] Replace '_' with ' '\n[ ] Add 'b'\n[x] Remove 'a'\n");
}

TEST_F(RenamerRulesTest, RemovesTheHighlightedRow) {
  renamer_.AddRule_Click("a", "b");
  renamer_.AddRule_Click("c", "d");
  renamer_.RemoveRule_Click(1);
  EXPECT_EQ(Rules(), "[x] Replace '_' with ' '\n[x] Replace 'c' with 'd'\n");
  EXPECT_EQ(RuleInSlot(renamer_.Config(), 1), (RenameRule{"c", "d"}));
  EXPECT_EQ(Active().substr(0, 3), "xx-");
  renamer_.RemoveRule_Click(-1);
  renamer_.RemoveRule_Click(2);
  EXPECT_EQ(renamer_.view.RuleList.size(), 2u);
}

TEST_F(RenamerRulesTest, CopiesAllTicksAtEachClick) {
  renamer_.AddRule_Click("a", "b");
  renamer_.RuleList_ItemCheck(0, false);
  EXPECT_EQ(Active().substr(0, 3), "-x-");
  renamer_.RuleList_ItemCheck(0, true);
  EXPECT_EQ(Active().substr(0, 3), "xx-");
}

TEST_F(RenamerRulesTest, RowsOfALoadedFileWithAGapStandForTheSlotOfTheirPlace) {
  RenameConfig config;
  PutRule(config, 2, {"c", "d"}, false);
  Load(config);
  EXPECT_EQ(Rules(), "[x] Replace '_' with ' '\n[ ] Replace 'c' with 'd'\n");
  renamer_.RuleList_ItemCheck(1, true);
  EXPECT_EQ(Active().substr(0, 4), "xx--") << "row 1 is slot 1";
  fakes_.dialogs.save_names = {"c:\\saved.rps"};
  renamer_.RulesSave_Click();
  RenameConfig saved;
  ASSERT_TRUE(ReadRenameSettings(*files_, "c:\\saved.rps", saved));
  EXPECT_EQ(RuleInSlot(saved, 2), (RenameRule{"c", "d"})) << "the gap stays";
}

TEST_F(RenamerRulesTest, OptionsReachTheRecordAtOnce) {
  for (bool RenameConfig::*field :
       {&RenameConfig::Capitalise, &RenameConfig::Extension, &RenameConfig::Increment, &RenameConfig::IncPos,
        &RenameConfig::Truncat, &RenameConfig::LowFilename, &RenameConfig::RenID3, &RenameConfig::RemNumbers}) {
    const bool before = renamer_.Config().*field;
    renamer_.Option_Click(field, !before);
    EXPECT_EQ(renamer_.Config().*field, !before);
    EXPECT_EQ(renamer_.view.options.*field, !before);
  }
  renamer_.Truncval_Click(99);
  EXPECT_EQ(renamer_.Config().Truncval, 99);
}

TEST_F(RenamerRulesTest, GeneratesATestName) {
  renamer_.RenTest_Click("SAmPle File_naMe.MP3");
  EXPECT_EQ(renamer_.view.Test2, "Sample File Name.mp3");
  EXPECT_EQ(renamer_.view.report, "Generated Test FileName from: SAmPle File_naMe.MP3");
  renamer_.Option_Click(&RenameConfig::Increment, true);
  renamer_.RenTest_Click("a_b.mp3");
  EXPECT_EQ(renamer_.view.Test2, "08 - A B.mp3");
  EXPECT_EQ(renamer_.view.Test1, "a_b.mp3");
  renamer_.RenReset_Click();
  EXPECT_EQ(renamer_.view.Test1, "SAmPle File_naMe.MP3");
  EXPECT_EQ(renamer_.view.Test2, "");
}

TEST_F(RenamerRulesTest, GeneratesTheSummary) {
  renamer_.ShowSummary();
  EXPECT_EQ(renamer_.view.TestList.size(), 5u);
  EXPECT_EQ(renamer_.view.report, "Generated Report of Renaming Rules...");
}

TEST_F(RenamerRulesTest, SavesWhereTheUserChooses) {
  fakes_.dialogs.save_names = {"c:\\my.rps"};
  renamer_.RulesSave_Click();
  EXPECT_EQ(drives_.Read("my.rps").size(), kRenameRecordSize);
  EXPECT_EQ(renamer_.view.report, "Renaming Configuration Saved to: 'c:\\my.rps'");
  const FileRequest& request = fakes_.dialogs.save_requests.at(0);
  EXPECT_EQ(request.file_name, "c:\\program\\*.rps");
  EXPECT_EQ(request.filter, "Replace Settings (*.rps)|*.rps|");
  EXPECT_EQ(request.default_extension, "rps");
}

TEST_F(RenamerRulesTest, AsksBeforeItReplacesAFile) {
  drives_.Write("my.rps", "old");
  fakes_.dialogs.save_names = {"c:\\my.rps", "c:\\my.rps"};
  fakes_.dialogs.answers = {MessageAnswer::kNo, MessageAnswer::kYes};
  renamer_.RulesSave_Click();
  EXPECT_EQ(Told(), (std::vector<std::string>{"c:\\my.rps exists, do you want to replace it?"}));
  EXPECT_EQ(drives_.Read("my.rps"), "old");
  renamer_.RulesSave_Click();
  EXPECT_EQ(drives_.Read("my.rps").size(), kRenameRecordSize);
}

TEST_F(RenamerRulesTest, TellsThatAFileCannotBeWritten) {
  fakes_.dialogs.save_names = {"c:\\no folder\\my.rps"};
  renamer_.RulesSave_Click();
  EXPECT_EQ(fakes_.dialogs.messages, (std::vector<Message>{{"An error occured writing this file!   ",
                                                            MessageIcon::kExclamation, MessageButtons::kOk}}));
  EXPECT_EQ(renamer_.view.report, "");
}

TEST_F(RenamerRulesTest, ACancelledDialogSaysNothing) {
  renamer_.RulesSave_Click();
  renamer_.RulesLoad_Click();
  EXPECT_TRUE(Told().empty());
  EXPECT_EQ(renamer_.view.report, "");
  EXPECT_EQ(fakes_.dialogs.open_requests.at(0).file_name, "c:\\program\\*.rps");
}

TEST_F(RenamerRulesTest, LoadsAndShowsAFile) {
  RenameConfig config;
  config.Increment = true;
  config.Truncval = 300;
  PutRule(config, 1, {"x", ""}, false);
  Load(config);
  EXPECT_EQ(renamer_.view.report, "Renaming Configuration Loaded from: 'c:\\loaded.rps'");
  EXPECT_EQ(Rules(), "[x] Replace '_' with ' '\n[ ] Remove 'x'\n");
  EXPECT_TRUE(renamer_.view.options.Increment);
  EXPECT_EQ(renamer_.Config().Truncval, 300);
}

TEST_F(RenamerRulesTest, AFileOfAnotherVersionIsUsedButNotShown) {
  RenameConfig config;
  config.LowFilename = true;
  config.Version = "20";
  drives_.Write("old.rps", RenameRecord(config));
  fakes_.dialogs.open_names = {"c:\\old.rps"};
  renamer_.RulesLoad_Click();
  EXPECT_EQ(
      fakes_.dialogs.messages,
      (std::vector<Message>{
          {"An error occured reading this file!   ", MessageIcon::kExclamation, MessageButtons::kOk},
          {"Older RPS files may not work due to an update.   ", MessageIcon::kInformation, MessageButtons::kOk}}));
  EXPECT_FALSE(renamer_.view.options.LowFilename);
  EXPECT_EQ(Rules(), "[x] Replace '_' with ' '\n");
  renamer_.RenTest_Click("A_B.mp3");
  EXPECT_EQ(renamer_.view.Test2, "a b.mp3");
}

TEST_F(RenamerRulesTest, GetsTheDefaultsBack) {
  renamer_.AddRule_Click("a", "b");
  renamer_.Option_Click(&RenameConfig::RenID3, true);
  renamer_.RulesDef_Click();
  EXPECT_EQ(renamer_.Config(), RenameConfig());
  EXPECT_EQ(Rules(), "[x] Replace '_' with ' '\n");
  EXPECT_FALSE(renamer_.view.options.RenID3);
}

}  // namespace
}  // namespace qublet

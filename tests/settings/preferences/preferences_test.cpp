#include "settings/preferences/preferences.h"

#include <gtest/gtest.h>

#include "settings/schemes/look_file.h"
#include "support/preferences_test_base.h"

namespace qublet {
namespace {

using Message = ScriptedDialogs::Message;

class PreferencesTest : public PreferencesTestBase {
 protected:
  std::string StoredRecent(int number) const {
    return fakes_.store.GetSetting("QUBLET2021", "RF", std::to_string(number));
  }

  Preferences preferences_{engine_};
};

TEST_F(PreferencesTest, OpenWithTheRecordAndWhereTheWindowStandsNow) {
  Settings().SHUFFLEINT = 7;
  state_.copy = [](AppSettings& settings) { settings.TV[2] = 123; };
  const AppSettings& opened = preferences_.Open();
  EXPECT_EQ(opened.SHUFFLEINT, 7);
  EXPECT_EQ(opened.TV[2], 123);
  EXPECT_EQ(state_.applied, 0);
}

TEST_F(PreferencesTest, StoreTheControlsOverWhereTheWindowStandsNowAndHaveItFollow) {
  state_.copy = [](AppSettings& settings) {
    settings.TA = false;
    settings.TV[2] = 123;
    settings.T = 4711;
  };
  window_.shown.clear();
  preferences_.StoreOptionControls([](AppSettings& settings) {
    EXPECT_EQ(settings.T, 4711);
    settings.TA = true;
  });
  EXPECT_TRUE(Settings().TA);
  EXPECT_EQ(Settings().TV[2], 123);
  EXPECT_EQ(Settings().T, 4711);
  EXPECT_EQ(state_.applied, 1);
  EXPECT_EQ(window_.shown, (std::vector<std::string>{"recent", "click"}));
}

TEST_F(PreferencesTest, StoreNothingOnDisk) {
  preferences_.StoreOptionControls([](AppSettings& settings) { settings.GRID = true; });
  EXPECT_TRUE(fakes_.store.AllSettings("QUBLET2021").empty());
}

TEST_F(PreferencesTest, LoadDefaultsOnYesAlone) {
  Settings().BC = 1;
  for (const MessageAnswer answer : {MessageAnswer::kNo, MessageAnswer::kCancel}) {
    Asked().answers = {answer};
    EXPECT_FALSE(preferences_.cmdDefault_Click());
  }
  Asked().answers = {MessageAnswer::kYes};
  const auto defaults = preferences_.cmdDefault_Click();
  ASSERT_TRUE(defaults);
  AppSettings expected;
  LoadDefaultSettings(expected, {});
  EXPECT_EQ(*defaults, expected);
  EXPECT_EQ(Settings().BC, 1);
  EXPECT_EQ(state_.applied, 0);
  EXPECT_EQ(Asked().messages.back(), (Message{"Load defaults for all options into the preferences dialogue?",
                                              MessageIcon::kQuestion, MessageButtons::kYesNo}));
}

TEST_F(PreferencesTest, KeepTheMenuWhereTheToolbarIsHidden) {
  EXPECT_TRUE(preferences_.MenuStays(true, false));
  EXPECT_FALSE(preferences_.MenuStays(false, true));
  EXPECT_TRUE(preferences_.MenuStays(true, true));
  EXPECT_TRUE(Asked().messages.empty());
  EXPECT_TRUE(preferences_.MenuStays(false, false));
  EXPECT_EQ(Asked().messages, (std::vector<Message>{{"Either the Toolbar or Menu must be visible...",
                                                     MessageIcon::kInformation, MessageButtons::kOk}}));
}

TEST_F(PreferencesTest, BrowseFromTheFolderThatIsThere) {
  Asked().folders = {std::nullopt, "c:\\new"};
  EXPECT_FALSE(preferences_.Command1_Click("c:\\old"));
  EXPECT_EQ(preferences_.Command1_Click("c:\\old"), "c:\\new\\");
  EXPECT_EQ(Asked().browse_titles.front(), "Select Folder...");
  EXPECT_EQ(Asked().browse_starts.front(), "c:\\old");
}

class FlushTest : public PreferencesTest {
 protected:
  void SetUp() override {
    PreferencesTest::SetUp();
    for (const char* name : kOwn) drives_.Write(std::string("program/") + name, "x");
    drives_.Write("program/recovery-1.m3u", "x");
    drives_.Write("cover.bmp", "x");
    engine_.document.TempFiles = {"c:\\cover.bmp", "c:\\gone.bmp"};
    for (int number = 1; number <= 20; ++number)
      fakes_.store.SaveSetting("QUBLET2021", "RF", std::to_string(number), "c:\\a.m3u");
    fakes_.store.SaveSetting("QUBLET2021", "RF", "W", "c:\\winamp.bm");
    fakes_.store.SaveSetting("QUBLET2021", "SSE", "V", "1");
    fakes_.startup.paths["last"] = "c:\\program\\last.m3u";
  }
  bool IsThere(const std::string& name) const { return std::filesystem::exists(drives_.C() / name); }

  static constexpr const char* kOwn[] = {"last.m3u", "tmp.m3u", "tmp.bmp", "tmp.htm", "tmp.txt"};
};

TEST_F(FlushTest, WarnsAndAsksLetterForLetter) {
  Asked().answers = {MessageAnswer::kOk, MessageAnswer::kYes};
  preferences_.cmdFlushReg_Click();
  EXPECT_EQ(
      Asked().messages,
      (std::vector<Message>{
          {"WARNING!:\r\nThis macro will remove all registry settings and temporary files. \r\nYou will lose ALL "
           "settings made and this macro should only be\r\nused if the current settings stored are causing problems, "
           "or\r\nan update requires that registry settings from older versions\r\nbe removed. This process is NOT "
           "undo-able and the application\r\nwill terminate if you click 'YES' in the next dialogue...",
           MessageIcon::kStop, MessageButtons::kOk},
          {"Are you sure you want to continue with the removal of ALL settings and temporary files?",
           MessageIcon::kQuestion, MessageButtons::kYesNo},
          {"The application will now close...", MessageIcon::kInformation, MessageButtons::kOk}}));
}

TEST_F(FlushTest, ChangesNothingUnlessTheSecondAnswerIsYes) {
  for (const MessageAnswer answer : {MessageAnswer::kNo, MessageAnswer::kCancel}) {
    Asked().answers = {MessageAnswer::kOk, answer};
    preferences_.cmdFlushReg_Click();
  }
  for (const char* name : kOwn) EXPECT_TRUE(IsThere(std::string("program/") + name)) << name;
  EXPECT_TRUE(IsThere("cover.bmp"));
  EXPECT_EQ(StoredRecent(1), "c:\\a.m3u");
  EXPECT_EQ(fakes_.startup.paths.size(), 1U);
  EXPECT_EQ(state_.ended_unsaved, 0);
  EXPECT_EQ(Asked().messages.size(), 4U);
}

TEST_F(FlushTest, EmptiesTheRecentListAloneAndRemovesFilesAndStartup) {
  Asked().answers = {MessageAnswer::kOk, MessageAnswer::kYes};
  preferences_.cmdFlushReg_Click();
  for (int number = 1; number <= 20; ++number) EXPECT_EQ(StoredRecent(number), "") << number;
  EXPECT_EQ(fakes_.store.GetSetting("QUBLET2021", "RF", "W"), "c:\\winamp.bm");
  EXPECT_EQ(fakes_.store.GetSetting("QUBLET2021", "SSE", "V"), "1");
  EXPECT_TRUE(fakes_.startup.paths.empty());
  for (const char* name : kOwn) EXPECT_FALSE(IsThere(std::string("program/") + name)) << name;
  EXPECT_FALSE(IsThere("cover.bmp"));
  EXPECT_TRUE(IsThere("program/recovery-1.m3u"));
  EXPECT_EQ(state_.ended_unsaved, 1);
}

TEST_F(FlushTest, EndsTheProgramAlsoWhereFilesCanNotBeRemoved) {
  std::filesystem::remove_all(drives_.C() / "program");
  Asked().answers = {MessageAnswer::kOk, MessageAnswer::kYes};
  preferences_.cmdFlushReg_Click();
  EXPECT_EQ(state_.ended_unsaved, 1);
}

class LookFiles : public PreferencesTest {
 protected:
  LookFiles() { look_ = LookOf(*FindScheme("Pastel")); }

  Look look_;
};

TEST_F(LookFiles, AreAskedForInTheProgramFolder) {
  preferences_.schLoad_Click(look_);
  preferences_.schSave_Click(look_);
  for (const auto& requests : {Asked().open_requests, Asked().save_requests}) {
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(requests[0].file_name, "c:\\program\\*.dps");
    EXPECT_EQ(requests[0].filter, "Interface Settings (*.dps)|*.dps|");
    EXPECT_EQ(requests[0].default_extension, "dps");
  }
  EXPECT_EQ(look_, LookOf(*FindScheme("Pastel"))) << "cancel changes nothing";
}

TEST_F(LookFiles, BringBackWhatWasSaved) {
  Asked().save_names = {"c:\\dj.dps"};
  preferences_.schSave_Click(LookOf(*FindScheme("DJ")));
  EXPECT_EQ(drives_.Read("dj.dps").size(), 120U);
  Asked().open_names = {"c:\\dj.dps"};
  preferences_.schLoad_Click(look_);
  Look expected = LookOf(*FindScheme("DJ"));
  expected.size = 7;
  EXPECT_EQ(look_, expected);
  EXPECT_TRUE(Asked().messages.empty());
}

TEST_F(LookFiles, ReplaceWithoutAQuestionAndKeepALongersTail) {
  drives_.Write("old.dps", std::string(120, 'x') + "tail");
  Asked().save_names = {"c:\\old.dps"};
  preferences_.schSave_Click(look_);
  EXPECT_EQ(drives_.Read("old.dps"), LookRecord(look_) + "tail");
  EXPECT_TRUE(Asked().messages.empty());
}

TEST_F(LookFiles, TakeAMissingFileForZerosAsFarAsThatGoes) {
  Asked().open_names = {"c:\\gone.dps"};
  Look expected = look_;
  expected.background = expected.text = 0;
  preferences_.schLoad_Click(look_);
  EXPECT_EQ(look_, expected);
  EXPECT_TRUE(Asked().messages.empty());
}

TEST_F(LookFiles, TakeAFolderForAMissingFile) {
  std::filesystem::create_directory(drives_.C() / "folder.dps");
  Asked().open_names = {"c:\\folder.dps"};
  preferences_.schLoad_Click(look_);
  EXPECT_EQ(look_.background, 0);
  EXPECT_EQ(look_.font, "Arial Narrow");
}

TEST_F(LookFiles, StopAtASizeBelowOne) {
  Look broken = LookOf(*FindScheme("Blue Studio"));
  broken.size = 0;
  ASSERT_TRUE(WriteLook(*files_, "c:\\broken.dps", broken));
  Asked().open_names = {"c:\\broken.dps"};
  preferences_.schLoad_Click(look_);
  EXPECT_EQ(look_.background, broken.background);
  EXPECT_EQ(look_.text, broken.text);
  EXPECT_EQ(look_.font, "Arial");
  EXPECT_EQ(look_.size, 9);
}

TEST_F(LookFiles, AreGivenUpSilentlyWhereTheyCanNotBeWritten) {
  Asked().save_names = {"c:\\no\\such\\folder.dps"};
  preferences_.schSave_Click(look_);
  EXPECT_TRUE(Asked().messages.empty());
}

}  // namespace
}  // namespace qublet

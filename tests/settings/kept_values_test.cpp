#include "settings/kept_values.h"

#include <gtest/gtest.h>

#include "support/fake_settings_store.h"

namespace qublet {
namespace {

const std::string kApplication = "QUBLET2021";

TEST(RecentFiles, EndAtKeyTwenty) {
  const std::vector<Setting> expected = {{"RF", "18", "a"}, {"RF", "19", "b"}, {"RF", "20", "c"}};
  EXPECT_EQ(StoredRecentFiles({"a", "b", "c"}), expected);
  EXPECT_TRUE(StoredRecentFiles({}).empty());
  EXPECT_EQ(StoredRecentFiles(std::vector<std::string>(20)).front(), (Setting{"RF", "1", ""}));
}

TEST(RecentFiles, ComeBackInTheirOrder) {
  FakeSettingsStore store;
  store.SaveSettings(kApplication, StoredRecentFiles({"a", "b", "c"}));
  EXPECT_EQ(LoadRecentFiles(store, kApplication, 10), (std::vector<std::string>{"a", "b", "c"}));
}

TEST(RecentFiles, AreReadOnlyAsFarAsTheyCount) {
  FakeSettingsStore store;
  store.SaveSettings(kApplication, StoredRecentFiles({"a", "b", "c"}));
  EXPECT_EQ(LoadRecentFiles(store, kApplication, 2), (std::vector<std::string>{"b", "c"}));
  EXPECT_TRUE(LoadRecentFiles(store, kApplication, 0).empty());
  EXPECT_TRUE(LoadRecentFiles(store, kApplication, -5).empty());
  EXPECT_EQ(store.reads, (std::vector<std::string>{"RF/19", "RF/20"}));
}

TEST(RecentFiles, OlderKeysKeepWhatAShorterListDoesNotReach) {
  FakeSettingsStore store;
  store.SaveSettings(kApplication, StoredRecentFiles({"a", "b", "c"}));
  store.SaveSettings(kApplication, StoredRecentFiles({"d"}));
  EXPECT_EQ(LoadRecentFiles(store, kApplication, 20), (std::vector<std::string>{"a", "b", "d"}));
}

TEST(RecentFiles, LeaveOutEmptyValues) {
  FakeSettingsStore store;
  store.SaveSettings(kApplication, StoredRecentFiles({"a", "", "c"}));
  EXPECT_EQ(LoadRecentFiles(store, kApplication, 20), (std::vector<std::string>{"a", "c"}));
}

TEST(IsFirstStart, IsTrueUntilTheProgramPathIsWritten) {
  FakeSettingsStore store;
  EXPECT_TRUE(IsFirstStart(store, kApplication));
  SaveSetting(store, kApplication, kProgramPath, "z:\\opt\\QUBLET20.exe");
  EXPECT_FALSE(IsFirstStart(store, kApplication));
  EXPECT_TRUE(IsFirstStart(store, "QUBLET2022"));
  EXPECT_EQ(store.GetSetting(kApplication, "Startup", "insl"), "z:\\opt\\QUBLET20.exe");
}

TEST(SaveSetting, GivesUpQuietly) {
  FakeSettingsStore store;
  store.refuses_to_save = true;
  EXPECT_NO_THROW(SaveSetting(store, kApplication, kWorkFolder, "c:\\"));
  EXPECT_EQ(GetSetting(store, kApplication, kWorkFolder), "");
}

}  // namespace
}  // namespace qublet

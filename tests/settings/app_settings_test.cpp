#include "settings/app_settings.h"

#include <gtest/gtest.h>

#include "settings/application.h"
#include "settings/setting_rows.h"
#include "support/fake_settings_store.h"
#include "support/fake_startup_entries.h"
#include "support/temporary_drives.h"

namespace qublet {
namespace {

const std::string kApplication = "QUBLET2021";
constexpr ColumnWidths kDesignWidths = {255, 60, 80, 400, 80, 80, 80, 100, 100};
constexpr ScreenSize kScreen = {28800, 16200};  // 1920 by 1080

// Every key with its default and another value, both as stored, in the order in which the keys are read.
struct Key {
  std::string section;
  std::string key;
  std::string first;
  std::string other;
};

void PrintTo(const Key& key, std::ostream* out) {
  *out << key.section << '/' << key.key;
}

std::vector<Key> Keys() {
  std::vector<Key> keys = {{"ToolB", "Flat", "True", "False"},
                           {"ToolB", "3D", "True", "False"},
                           {"ToolB", "Align", "2", "1"},
                           {"Menu", "Visible", "True", "False"},
                           {"VE", "SA", "1", "0"},
                           {"VE", "TA", "1", "0"},
                           {"TableB", "BC", "21306", "-2147483643"},
                           {"TableB", "FC", "57284", "16711680"},
                           {"TableFont", "Name", "Arial Narrow", "Tahoma"},
                           {"TableFont", "Size", "8", "11"},
                           {"TableFont", "Italic", "False", "True"},
                           {"TableFont", "Bold", "False", "True"},
                           {"TableFont", "Strikethrough", "False", "True"},
                           {"TableFont", "Underline", "False", "True"}};
  for (std::size_t i = 0; i < kDesignWidths.size(); ++i) {
    const std::string number = std::to_string(i + 1);
    keys.push_back({"TableB", "TX" + number, "True", "False"});
    keys.push_back({"TableB", "TV" + number, std::to_string(kDesignWidths[i]), std::to_string(300 + i)});
  }
  const std::vector<Key> rest = {{"PS", "H", "6000", "6100"},
                                 {"PS", "T", "1900", "2100"},
                                 {"PS", "W", "7920", "8100"},
                                 {"PS", "L", "800", "1100"},
                                 {"SSE", "RESPLAYLIST", "1", "0"},
                                 {"SSE", "WINSTART", "0", "1"},
                                 {"SSE", "PROMPTSORT", "1", "0"},
                                 {"SSE", "PROMPTMISS", "1", "0"},
                                 {"SSE", "DBLCLKACTN", "1", "0"},
                                 {"SSE", "SHUFFLEINT", "1", "7"},
                                 {"SSE", "GRID", "0", "1"},
                                 {"SSE", "HOTTRACK", "0", "1"},
                                 {"SSE", "RCount", "10", "20"},
                                 {"SSE", "RPath", "False", "True"},
                                 {"SSE", "RPurge", "False", "True"},
                                 {"SSE", "SActi", "True", "False"},
                                 {"SSE", "Idir", "", "c:\\music"},
                                 {"SSE", "PLTSC", "False", "True"},
                                 {"SSE", "PLTSP", "120", "700"},
                                 {"SSE", "PLTTC", "False", "True"},
                                 {"SSE", "PLTTP", "4800", "2147483647"},
                                 {"SSE", "PLTCC", "False", "True"},
                                 {"SSE", "PLTCP", "15", "99"},
                                 {"SSE", "DefSName", "%0", "%1 - %2"},
                                 {"SSE", "AUDate", "True", "False"},
                                 {"SSE", "V", "1", "0"}};
  keys.insert(keys.end(), rest.begin(), rest.end());
  return keys;
}

std::string NameOf(const Key& key) {
  return key.section + "/" + key.key;
}

AppSettings Defaults() {
  AppSettings settings;
  LoadDefaultSettings(settings, kDesignWidths);
  return settings;
}

AppSettings Loaded(const SettingsStore& store) {
  AppSettings settings = Defaults();
  LoadSettings(store, kApplication, settings, kScreen);
  return settings;
}

// What loads from a store of these values.
AppSettings LoadedFrom(const std::vector<Setting>& values) {
  FakeSettingsStore store;
  store.applications[kApplication] = values;
  return Loaded(store);
}

std::string Stored(const AppSettings& settings, const Key& key) {
  const SettingRow* row = FindSettingRow(key.section, key.key);
  return row == nullptr ? "no such key" : WriteSetting(*row, row->field.Get(settings));
}

void Save(FakeSettingsStore& store, const AppSettings& settings) {
  FakeStartupEntries startup;
  SaveSettings(store, kApplication, settings, startup, "c:\\last.m3u");
}

class EveryKeyTest : public testing::TestWithParam<Key> {};

TEST_P(EveryKeyTest, HasItsDefault) {
  EXPECT_EQ(Stored(Defaults(), GetParam()), GetParam().first);
}

TEST_P(EveryKeyTest, LoadsAndSavesAnotherValueAndNothingElse) {
  const Key& key = GetParam();
  const AppSettings settings = LoadedFrom({{key.section, key.key, key.other}});
  EXPECT_EQ(Stored(settings, key), key.other);

  FakeSettingsStore store;
  Save(store, settings);
  EXPECT_EQ(store.GetSetting(kApplication, key.section, key.key), key.other);
  EXPECT_EQ(Loaded(store), settings);

  std::vector<std::string> changed;
  for (const Key& candidate : Keys()) {
    if (Stored(settings, candidate) != candidate.first) changed.push_back(NameOf(candidate));
  }
  EXPECT_EQ(changed, std::vector{NameOf(key)});
}

std::vector<Key> KeysOfNumbersAndBooleans() {
  std::vector<Key> keys = Keys();
  std::erase_if(keys, [](const Key& key) { return key.key == "Name" || key.key == "Idir" || key.key == "DefSName"; });
  return keys;
}

class DamagedKeyTest : public testing::TestWithParam<Key> {};

TEST_P(DamagedKeyTest, KeepsItsDefaultAndLetsTheOthersLoad) {
  for (const std::string damaged : {"letters", "", "12abc", "99999999999999999999x", "\xFF\xFE", "True False"}) {
    std::vector<Setting> values;
    for (const Key& key : Keys()) {
      values.push_back({key.section, key.key, NameOf(key) == NameOf(GetParam()) ? damaged : key.other});
    }
    const AppSettings settings = LoadedFrom(values);
    for (const Key& key : Keys()) {
      const bool is_damaged = NameOf(key) == NameOf(GetParam());
      const bool is_forced = key.key == "Visible" && GetParam().key != "TA";  // the other values hide the toolbar
      EXPECT_EQ(Stored(settings, key), is_damaged || is_forced ? key.first : key.other) << NameOf(key);
    }
  }
}

std::string TestName(const testing::TestParamInfo<Key>& info) {
  return info.param.section + "_" + info.param.key;
}

INSTANTIATE_TEST_SUITE_P(Table, EveryKeyTest, testing::ValuesIn(Keys()), TestName);
INSTANTIATE_TEST_SUITE_P(Table, DamagedKeyTest, testing::ValuesIn(KeysOfNumbersAndBooleans()), TestName);

TEST(LoadDefaultSettings, WritesOnlyWhatIsNotFalseZeroOrEmpty) {
  AppSettings settings;
  settings.WINSTART = settings.GRID = settings.Bold = settings.PLTSC = true;
  settings.Idir = "d:\\";
  settings.TV[2] = 77;
  settings.V = false;
  settings.RCount = 3;
  LoadDefaultSettings(settings, {255, 60, 0});
  EXPECT_TRUE(settings.WINSTART && settings.GRID && settings.Bold && settings.PLTSC);
  EXPECT_EQ(settings.Idir, "d:\\");
  EXPECT_EQ(settings.TV[2], 77);
  EXPECT_TRUE(settings.V);
  EXPECT_EQ(settings.RCount, 10);
  EXPECT_EQ(settings.TV[0], 255);
}

TEST(LoadSettings, AnEmptyStoreGivesExactlyTheDefaults) {
  EXPECT_EQ(Loaded(FakeSettingsStore()), Defaults());
}

TEST(LoadSettings, ReadsEachKeyOnceInItsOrder) {
  FakeSettingsStore store;
  Loaded(store);
  std::vector<std::string> expected;
  for (const Key& key : Keys()) expected.push_back(NameOf(key));
  EXPECT_EQ(store.reads, expected);
}

TEST(LoadSettings, ShowsTheMenuWhenBothMenuAndToolbarAreHidden) {
  EXPECT_TRUE(LoadedFrom({{"Menu", "Visible", "False"}, {"VE", "TA", "0"}}).Visible);
  EXPECT_FALSE(LoadedFrom({{"Menu", "Visible", "False"}, {"VE", "TA", "0"}}).TA);
  EXPECT_FALSE(LoadedFrom({{"Menu", "Visible", "False"}, {"VE", "TA", "1"}}).Visible);
  EXPECT_TRUE(LoadedFrom({{"Menu", "Visible", "False"}, {"VE", "TA", "-1"}}).Visible);
}

TEST(LoadSettings, TakesMinusOneAsFalseForAFlagAndAsTrueForAWord) {
  const AppSettings settings = LoadedFrom({{"VE", "TA", "-1"}, {"ToolB", "Flat", "-1"}});
  EXPECT_FALSE(settings.TA);
  EXPECT_TRUE(settings.Flat);
}

TEST(LoadSettings, ASizeBeyondTheScreenIsTheFirstSize) {
  const auto height = [](const std::string& text) {
    FakeSettingsStore store;
    store.applications[kApplication] = {{"PS", "H", text}};
    AppSettings settings = Defaults();
    LoadSettings(store, kApplication, settings, {20480, 15360});
    return settings.H;
  };
  EXPECT_EQ(height("20000"), 6000);
  EXPECT_EQ(height("15360"), 6000);
  EXPECT_EQ(height("15359"), 15359);
  EXPECT_EQ(LoadedFrom({{"PS", "W", "28800"}}).W, 7920);
  EXPECT_EQ(LoadedFrom({{"PS", "W", "28799"}}).W, 28799);
}

TEST(LoadSettings, APlaceOutsideTheScreenIsTheFirstPlace) {
  EXPECT_EQ(LoadedFrom({{"PS", "T", "100"}}).T, 1900);
  EXPECT_EQ(LoadedFrom({{"PS", "T", "101"}}).T, 101);
  EXPECT_EQ(LoadedFrom({{"PS", "T", "-300"}}).T, 1900);
  EXPECT_EQ(LoadedFrom({{"PS", "T", "15199"}}).T, 15199);
  EXPECT_EQ(LoadedFrom({{"PS", "T", "15200"}}).T, 1900);
  EXPECT_EQ(LoadedFrom({{"PS", "L", "100"}}).L, 800);
  EXPECT_EQ(LoadedFrom({{"PS", "L", "101"}}).L, 101);
  EXPECT_EQ(LoadedFrom({{"PS", "L", "27799"}}).L, 27799);
  EXPECT_EQ(LoadedFrom({{"PS", "L", "27800"}}).L, 800);
}

TEST(LoadSettings, AScreenTooSmallForAnyPlaceGivesTheFirstOnes) {
  AppSettings settings = Defaults();
  settings.T = settings.L = settings.W = settings.H = 5000;
  LoadSettings(FakeSettingsStore(), kApplication, settings, {0, 0});
  EXPECT_EQ(settings, Defaults());
}

TEST(LoadSettings, ABlankSaveNameIsTheFolderName) {
  EXPECT_EQ(LoadedFrom({{"SSE", "DefSName", "   "}}).DefSName, "%0");
  EXPECT_EQ(LoadedFrom({{"SSE", "DefSName", ""}}).DefSName, "%0");
  EXPECT_EQ(LoadedFrom({{"SSE", "DefSName", "  mix %0 "}}).DefSName, "mix %0");
}

TEST(LoadSettings, CutsTextsToTheirFields) {
  const AppSettings settings = LoadedFrom({{"TableFont", "Name", std::string(200, 'n')},
                                           {"SSE", "Idir", std::string(300, 'i')},
                                           {"SSE", "DefSName", std::string(300, 'd')}});
  EXPECT_EQ(settings.Name, std::string(100, 'n'));
  EXPECT_EQ(settings.Idir, std::string(255, 'i'));
  EXPECT_EQ(settings.DefSName, std::string(255, 'd'));
}

TEST(LoadSettings, AColumnWidthOfLettersKeepsTheDesignWidth) {
  const AppSettings settings =
      LoadedFrom({{"TableB", "TV3", "wide"}, {"TableB", "TX3", "False"}, {"TableB", "TV4", "500"}});
  EXPECT_EQ(settings.TV[2], 80);
  EXPECT_FALSE(settings.TX[2]);
  EXPECT_EQ(settings.TV[3], 500);
}

TEST(LoadSettings, LeavesTheSettingsOfAnotherVersionBehind) {
  FakeSettingsStore store;
  AppSettings settings = Defaults();
  settings.RCount = 5;
  FakeStartupEntries startup;
  SaveSettings(store, AppKey({"QUBLET20", 2, 1, 93}), settings, startup, "c:\\last.m3u");
  AppSettings loaded = Defaults();
  LoadSettings(store, AppKey({"QUBLET20", 2, 2, 1}), loaded, kScreen);
  EXPECT_EQ(loaded, Defaults());
}

TEST(SaveSettings, WritesEveryKeyInOneStep) {
  FakeSettingsStore store;
  Save(store, Defaults());
  EXPECT_EQ(store.saves, 1);
  EXPECT_EQ(store.AllSettings(kApplication).size(), Keys().size());
}

TEST(SaveSettings, TrimsTexts) {
  AppSettings settings = Defaults();
  settings.Idir = "  c:\\my music  ";
  FakeSettingsStore store;
  Save(store, settings);
  EXPECT_EQ(store.GetSetting(kApplication, "SSE", "Idir"), "c:\\my music");
}

TEST(SaveSettings, MakesAndRemovesTheStartupEntry) {
  FakeSettingsStore store;
  FakeStartupEntries startup;
  AppSettings settings = Defaults();
  settings.WINSTART = true;
  SaveSettings(store, kApplication, settings, startup, "z:\\home\\u\\last.m3u");
  EXPECT_EQ(startup.paths, (std::map<std::string, std::string>{{"last", "z:\\home\\u\\last.m3u"}}));
  settings.WINSTART = false;
  SaveSettings(store, kApplication, settings, startup, "z:\\home\\u\\last.m3u");
  EXPECT_TRUE(startup.paths.empty());
}

TEST(SaveSettings, SaysNothingWhenNothingCanBeWritten) {
  FakeSettingsStore store;
  store.refuses_to_save = true;
  FakeStartupEntries startup;
  AppSettings settings = Defaults();
  settings.WINSTART = true;
  EXPECT_NO_THROW(SaveSettings(store, kApplication, settings, startup, "c:\\last.m3u"));
  EXPECT_EQ(startup.paths.size(), 1U);
  startup.refuses = true;
  EXPECT_NO_THROW(SaveSettings(store, kApplication, settings, startup, "c:\\last.m3u"));
  settings.WINSTART = false;
  EXPECT_NO_THROW(SaveSettings(store, kApplication, settings, startup, "c:\\last.m3u"));
}

TEST(SaveSettings, SurvivesTheStoreOfThisMachine) {
  TemporaryDrives drives;
  AppSettings settings = Defaults();
  settings.Idir = "z:\\home\\u\\M\xC3\xBCsik = alt";
  settings.DefSName = "\"%0\" # 1";
  settings.BC = -1;
  FakeStartupEntries startup;
  SaveSettings(*OpenSettingsStore(), kApplication, settings, startup, "c:\\last.m3u");
  EXPECT_EQ(Loaded(*OpenSettingsStore()), settings);
}

TEST(SaveSettings, AStoreOfGarbageStartsWithTheDefaults) {
  TemporaryDrives drives;
  std::string garbage = "[SSE]\nV=\x01\x02\nRCount=\xFF\n=\n[[\n";
  for (int i = 0; i < 5000; ++i) garbage += static_cast<char>(i * 7919 % 251);
  TemporaryDrives::WriteAt(drives.Root() / "config" / "velmora" / (kApplication + ".conf"), garbage);
  EXPECT_EQ(Loaded(*OpenSettingsStore()), Defaults());
}

}  // namespace
}  // namespace qublet

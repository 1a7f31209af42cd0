#include "platform/settings_store.h"

#include <gtest/gtest.h>

#include "platform/failure.h"
#include "platform/windows/registry.h"

namespace qublet {
namespace {

constexpr const char* kApplication = "QubletTest1";

class RegistryStoreTest : public testing::Test {
 protected:
  RegistryStoreTest() { Clear(); }
  ~RegistryStoreTest() override { Clear(); }

  static void Clear() { RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Velmora\\QubletTest1"); }
  std::string Get(const std::string& section, const std::string& key) const {
    return store_->GetSetting(kApplication, section, key);
  }
  void Save(const std::string& section, const std::string& key, const std::string& value) {
    store_->SaveSetting(kApplication, section, key, value);
  }

  std::unique_ptr<SettingsStore> store_ = OpenSettingsStore();
};

TEST_F(RegistryStoreTest, GivesNothingForAnAbsentValue) {
  EXPECT_EQ(Get("SSE", "V"), "");
  EXPECT_TRUE(store_->AllSettings(kApplication).empty());
}

TEST_F(RegistryStoreTest, KeepsTextValuesOfThisUserUnderApplicationAndSection) {
  Save("TableFont", "Name", "Arial Narrow");
  const auto key = RegistryKey::Open(HKEY_CURRENT_USER, "Software\\Velmora\\QubletTest1\\TableFont", KEY_QUERY_VALUE);
  ASSERT_TRUE(key);
  EXPECT_EQ(key->Text("Name"), "Arial Narrow");
  EXPECT_EQ(OpenSettingsStore()->GetSetting(kApplication, "TableFont", "Name"), "Arial Narrow");
}

TEST_F(RegistryStoreTest, AnyTextSurvivesInEveryPlace) {
  const std::string texts[] = {
      "", " ", "a\\b", "%", "%5c", "a%b", "=", "[a]", "caf\u00E9 \u4E2D \U0001F3B5", "a\r\nb", "z:\\a.m3u", "\\"};
  for (const std::string& section : texts) {
    for (const std::string& key : texts) Save(section, key, section + "/" + key);
  }
  for (const std::string& section : texts) {
    for (const std::string& key : texts) EXPECT_EQ(Get(section, key), section + "/" + key);
  }
  EXPECT_EQ(store_->AllSettings(kApplication).size(), std::size(texts) * std::size(texts));
  for (const Setting& setting : store_->AllSettings(kApplication))
    EXPECT_EQ(setting.value, setting.section + "/" + setting.key);
}

TEST_F(RegistryStoreTest, KeepsLongAndEmptyValues) {
  const std::string text(100000, 'x');
  Save("SSE", "Long", text);
  Save("SSE", "Empty", "");
  EXPECT_EQ(Get("SSE", "Long"), text);
  EXPECT_EQ(Get("SSE", "Empty"), "");
  EXPECT_EQ(store_->AllSettings(kApplication).size(), 2u);
}

TEST_F(RegistryStoreTest, LosesNoKeyOfAnotherInstance) {
  const auto other = OpenSettingsStore();
  Save("RF", "19", "mine");
  other->SaveSettings(kApplication, {{"RF", "20", "theirs"}, {"SSE", "V", "1"}});
  Save("RF", "18", "mine too");
  EXPECT_EQ(Get("RF", "20"), "theirs");
  EXPECT_EQ(other->GetSetting(kApplication, "RF", "19"), "mine");
  EXPECT_EQ(store_->AllSettings(kApplication).size(), 4u);
}

TEST_F(RegistryStoreTest, RefusesAZeroCharacter) {
  EXPECT_THROW(Save("SSE", "V", std::string("a\0b", 3)), Failure);
  EXPECT_THROW(Save("SSE", std::string("a\0b", 3), "v"), Failure);
}

TEST_F(RegistryStoreTest, ReadsNoValueOfAnotherKind) {
  Save("SSE", "V", "1");
  DWORD number = 7;
  RegSetKeyValueW(HKEY_CURRENT_USER, L"Software\\Velmora\\QubletTest1\\SSE", L"N", REG_DWORD, &number, sizeof number);
  EXPECT_EQ(Get("SSE", "N"), "");
  EXPECT_EQ(store_->AllSettings(kApplication), (std::vector<Setting>{{"SSE", "V", "1"}}));
}

}  // namespace
}  // namespace qublet

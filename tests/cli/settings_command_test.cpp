#include <gtest/gtest.h>

#include "support/cli_test_base.h"

namespace qublet {
namespace {

class SettingsCommandTest : public CliTestBase {
 protected:
  int Run(const std::vector<std::string>& arguments) { return CliTestBase::Run("settings", arguments); }
  std::string Stored(const std::string& section, const std::string& key) const {
    return store_.GetSetting("QUBLET2021", section, key);
  }

  FakeSettingsStore& store_ = fakes_.store;
};

TEST_F(SettingsCommandTest, SetsGetsAndLists) {
  EXPECT_EQ(Run({"set", "SSE", "RCount", "12"}), 0);
  EXPECT_EQ(Run({"set", "RF", "W", "c:\\winamp.bm"}), 0);
  EXPECT_EQ(Stored("SSE", "RCount"), "12");
  EXPECT_EQ(Run({"get", "SSE", "RCount"}), 0);
  EXPECT_EQ(out_.str(), "12\n");
  EXPECT_EQ(Run({"list"}), 0);
  EXPECT_EQ(out_.str(), "SSE\tRCount\t12\tRecent files count:\nRF\tW\tc:\\\\winamp.bm\t\n");
  EXPECT_EQ(Run({}), 0);
  EXPECT_EQ(out_.str(), "SSE\tRCount\t12\tRecent files count:\nRF\tW\tc:\\\\winamp.bm\t\n");
  EXPECT_EQ(err_.str(), "");
}

TEST_F(SettingsCommandTest, ListsEachSettingInALineOfFourParts) {
  store_.SaveSettings("QUBLET2021", {{"a\tb", "c\\d", "two\r\nlines"}, {"SSE", "DefSName", "\\t"}});
  EXPECT_EQ(Run({"list"}), 0);
  EXPECT_EQ(out_.str(),
            "a\\tb\tc\\\\d\ttwo\\r\\nlines\t\nSSE\tDefSName\t\\\\t\tDefault Playlist Filename for Saving:\n");
}

TEST_F(SettingsCommandTest, ListsEachSettingAsAJsonObject) {
  store_.SaveSettings("QUBLET2021", {{"a\tb", "c", "two\nlines"}, {"SSE", "Idir", "c:\\m"}});
  for (const std::vector<std::string>& arguments :
       std::vector<std::vector<std::string>>{{"list", "--json"}, {"--json"}}) {
    EXPECT_EQ(Run(arguments), 0);
    EXPECT_EQ(out_.str(),
              "{\"section\": \"a\\u0009b\", \"key\": \"c\", \"value\": \"two\\u000alines\", \"caption\": \"\"}\n"
              "{\"section\": \"SSE\", \"key\": \"Idir\", \"value\": \"c:\\\\m\", "
              "\"caption\": \"Default import directory/folder:\"}\n");
  }
}

TEST_F(SettingsCommandTest, PutsTheCaptionOfTheChosenOptionBesideASetting) {
  store_.SaveSettings("QUBLET2021", {{"ToolB", "Flat", "True"},
                                     {"ToolB", "Align", "2"},
                                     {"SSE", "SActi", "False"},
                                     {"SSE", "SHUFFLEINT", "3"},
                                     {"SSE", "DBLCLKACTN", "odd"},
                                     {"SSE", "AUDate", "False"},
                                     {"TableB", "TV1", "80"}});
  EXPECT_EQ(Run({"list"}), 0);
  EXPECT_EQ(out_.str(),
            "ToolB\tFlat\tTrue\tFlat Buttons\nToolB\tAlign\t2\tAlign Bottom\nSSE\tSActi\tFalse\tAbsolute Save\n"
            "SSE\tSHUFFLEINT\t3\tShuffle Intensity:\nSSE\tDBLCLKACTN\todd\tPlay Selected\n"
            "SSE\tAUDate\tFalse\tAutomatically check for Updates\nTableB\tTV1\t80\t\n");
}

TEST_F(SettingsCommandTest, TellsAnAbsentValueFromAnEmptyOne) {
  EXPECT_EQ(Run({"get", "SSE", "Idir"}), 1);
  EXPECT_EQ(out_.str(), "");
  EXPECT_EQ(Run({"set", "SSE", "Idir", ""}), 0);
  EXPECT_EQ(Run({"get", "SSE", "Idir"}), 0);
  EXPECT_EQ(out_.str(), "\n");
}

TEST_F(SettingsCommandTest, RefusesWhatTheProgramCouldNotReadBack) {
  EXPECT_EQ(Run({"set", "SSE", "RCount", "many"}), 1);
  EXPECT_EQ(err_.str(), "qublet: SSE RCount takes a number from 1 to 20\n");
  EXPECT_EQ(Run({"set", "SSE", "RCount", "21"}), 1);
  EXPECT_EQ(Run({"set", "Menu", "Visible", "Yes"}), 1);
  EXPECT_EQ(err_.str(), "qublet: Menu Visible takes True or False\n");
  EXPECT_EQ(Run({"set", "VE", "TA", "True"}), 1);
  EXPECT_EQ(err_.str(), "qublet: VE TA takes 1 or 0\n");
  EXPECT_EQ(Run({"set", "TableFont", "Name", std::string(101, 'x')}), 1);
  EXPECT_EQ(err_.str(), "qublet: TableFont Name takes a text of up to 100 characters\n");
  EXPECT_EQ(store_.saves, 0);
}

TEST_F(SettingsCommandTest, SaysWhenAValueCanNotBeKept) {
  store_.refuses_to_save = true;
  EXPECT_EQ(Run({"set", "SSE", "V", "0"}), 1);
  EXPECT_EQ(err_.str(), "qublet: the store is read-only\n");
}

TEST_F(SettingsCommandTest, ShowsItsUseForAnythingElse) {
  for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
           {"get"}, {"get", "SSE"}, {"set", "SSE", "V"}, {"set", "SSE", "V", "1", "2"}, {"list", "SSE"}, {"drop"}}) {
    EXPECT_EQ(Run(arguments), 2);
    EXPECT_TRUE(err_.str().starts_with("qublet: settings: list [--json], get"));
  }
  EXPECT_EQ(store_.saves, 0);
}

}  // namespace
}  // namespace qublet

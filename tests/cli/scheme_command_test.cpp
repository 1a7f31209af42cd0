#include <gtest/gtest.h>

#include "support/cli_test_base.h"

namespace qublet {
namespace {

class SchemeCommandTest : public CliTestBase {
 protected:
  int Run(const Arguments& arguments) { return CliTestBase::Run("scheme", arguments); }
  std::string Stored(const std::string& section, const std::string& key) const {
    return fakes_.store.GetSetting("QUBLET2021", section, key);
  }
};

TEST_F(SchemeCommandTest, ListsTheSeven) {
  EXPECT_EQ(Run({"list"}), 0);
  EXPECT_EQ(Out(),
            "Default\t-2147483643\t-2147483640\tTahoma\t8\t0\n"
            "Green LCD\t21306\t57284\tArial Narrow\t8\t0\n"
            "Blue Studio\t8388608\t16711680\tArial\t8\t0\n"
            "Pastel\t16771304\t0\tArial Narrow\t9\t0\n"
            "Old Skool\t43\t255\tVerdana\t6.75\t1\n"
            "DJ\t3618588\t16732497\tVerdana\t6.75\t1\n"
            "Clear\t9915136\t16764778\tArial Narrow\t8\t0\n");
}

TEST_F(SchemeCommandTest, AppliesASchemeByItsCaption) {
  EXPECT_EQ(Run({"apply", "DJ"}), 0);
  EXPECT_EQ(Out() + Err(), "");
  EXPECT_EQ(Stored("TableB", "BC"), "3618588");
  EXPECT_EQ(Stored("TableB", "FC"), "16732497");
  EXPECT_EQ(Stored("TableFont", "Name"), "Verdana");
  EXPECT_EQ(Stored("TableFont", "Size"), "7");
  EXPECT_EQ(Stored("TableFont", "Bold"), "False");
  EXPECT_EQ(Stored("SSE", "GRID"), "1");
  EXPECT_EQ(fakes_.store.AllSettings("QUBLET2021").size(), 9u);
}

TEST_F(SchemeCommandTest, CarriesALookThroughAFile) {
  fakes_.store.SaveSettings("QUBLET2021", {{"TableFont", "Italic", "True"}, {"TableB", "BC", "255"}});
  EXPECT_EQ(Run({"save", "current", "c:\\mine.dps"}), 0);
  EXPECT_EQ(drives_.Read("mine.dps").size(), 120u);
  EXPECT_EQ(Run({"apply", "Clear"}), 0);
  EXPECT_EQ(Stored("TableFont", "Italic"), "False");
  EXPECT_EQ(Run({"apply", "c:\\mine.dps"}), 0);
  EXPECT_EQ(Stored("TableFont", "Italic"), "True");
  EXPECT_EQ(Stored("TableB", "BC"), "255");
  EXPECT_EQ(Stored("TableB", "FC"), "57284");
  EXPECT_EQ(Stored("TableFont", "Name"), "Arial Narrow");
}

TEST_F(SchemeCommandTest, ReplacesAFileOnlyWhenToldTo) {
  EXPECT_EQ(Run({"save", "DJ", "c:\\a.dps"}), 0);
  EXPECT_EQ(Run({"save", "Clear", "c:\\a.dps"}), 1);
  EXPECT_EQ(Err(), "qublet: c:\\a.dps: it exists; --replace replaces it\n");
  EXPECT_EQ(drives_.Read("a.dps").substr(0, 7), "Verdana");
  EXPECT_EQ(Run({"save", "Clear", "--replace", "c:\\a.dps"}), 0);
  EXPECT_EQ(drives_.Read("a.dps").substr(0, 12), "Arial Narrow");
}

TEST_F(SchemeCommandTest, StoresNothingFromAFileThatHoldsNoLook) {
  drives_.Write("short.dps", "Arial");
  drives_.Write("nameless.dps", std::string(120, ' '));
  EXPECT_EQ(Run({"apply", "c:\\none.dps"}), 1);
  EXPECT_EQ(Err(), "qublet: c:\\none.dps: no such file or folder\n");
  EXPECT_EQ(Run({"apply", "c:\\short.dps"}), 1);
  EXPECT_EQ(Err(), "qublet: c:\\short.dps: it holds no look\n");
  EXPECT_EQ(Run({"apply", "c:\\nameless.dps"}), 1);
  drives_.Write("huge.dps", "Arial" + std::string(95, ' ') + "\xFF\x7F" + std::string(18, '\0'));
  EXPECT_EQ(Run({"apply", "c:\\huge.dps"}), 1);
  EXPECT_EQ(fakes_.store.saves, 0);
}

TEST_F(SchemeCommandTest, SaysWhenALookCanNotBeKept) {
  fakes_.store.refuses_to_save = true;
  EXPECT_EQ(Run({"apply", "DJ"}), 1);
  EXPECT_EQ(Err(), "qublet: DJ: the store is read-only\n");
  EXPECT_EQ(Run({"save", "DJ", "c:\\none\\a.dps"}), 1);
}

TEST_F(SchemeCommandTest, ShowsItsUseForAnythingElse) {
  for (const Arguments& arguments : std::vector<Arguments>{{},
                                                           {"list", "DJ"},
                                                           {"save"},
                                                           {"save", "DJ"},
                                                           {"save", "dj", "c:\\a.dps"},
                                                           {"save", "DJ", "c:\\a.dps", "c:\\b.dps"},
                                                           {"apply"},
                                                           {"apply", "DJ", "--replace"},
                                                           {"apply", "--odd", "DJ"}}) {
    EXPECT_EQ(Run(arguments), 2);
    EXPECT_TRUE(Err().starts_with("qublet: scheme: ")) << Err();
  }
}

}  // namespace
}  // namespace qublet

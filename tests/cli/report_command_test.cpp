#include <gtest/gtest.h>

#include "generators/report/report_settings.h"
#include "support/cli_test_base.h"

namespace qublet {
namespace {

class ReportCommandTest : public CliTestBase {
 protected:
  ReportCommandTest() {
    drives_.Write("music/a.mp3", "aa");
    drives_.Write("music/b c/d.mp3", "dd");
    drives_.Write("list/list.m3u", "gone.mp3\r\n..\\music\\a.mp3\r\n");
  }

  int Run(Arguments arguments) { return CliTestBase::Run("report", std::move(arguments)); }
  // The rows of a table with "|" behind each cell.
  std::string Table(Arguments more) {
    Arguments arguments = {"--replace",   "--set", "SpaceAligned=0",  "--set", "CustomDelimited=1", "--set",
                           "Delimiter=|", "--set", "ColumnHeaders=0", "--set", "Summary=0",         "c:\\out.txt"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    EXPECT_EQ(Run(arguments), 0) << Err();
    return drives_.Read("out.txt");
  }
  ReportSettings Kept(const std::string& name) const { return ReportSettingsOf(drives_.Read(name)); }
};

TEST_F(ReportCommandTest, WritesAPageOfAFolder) {
  EXPECT_EQ(Run({"c:\\out.htm", "c:\\music"}), 0);
  EXPECT_EQ(Out() + Err(), "");
  const std::string page = drives_.Read("out.htm");
  EXPECT_TRUE(page.starts_with("<head><html><title>"));
  EXPECT_NE(page.find("<a href=a.mp3>"), std::string::npos);
  EXPECT_NE(page.find("<a href=b%20c/d.mp3>"), std::string::npos);
  EXPECT_NE(page.find(">2 Items"), std::string::npos);
}

TEST_F(ReportCommandTest, WritesATableWhereTheNameEndsInTxt) {
  EXPECT_EQ(Run({"c:\\OUT.TXT", "c:\\music"}), 0);
  EXPECT_TRUE(drives_.Read("OUT.TXT").starts_with("-----"));
}

TEST_F(ReportCommandTest, KeepsMissingItemsOfPlaylists) {
  EXPECT_EQ(Table({"--columns", "2,1,4", "c:\\list\\list.m3u", "c:\\music\\b c"}),
            "\r\n\r\nlist|Gone|Not found!|\r\nlist\\..\\music|A|2 Bytes|\r\nmusic\\b c|D|2 Bytes|\r\n\r\n");
}

TEST_F(ReportCommandTest, WritesNothingWhereAPathIsNotThere) {
  EXPECT_EQ(Run({"c:\\out.htm", "c:\\music", "c:\\none"}), 1);
  EXPECT_EQ(Err(), "qublet: c:\\none: no such file or folder\n");
  EXPECT_FALSE(files_->Attributes("c:\\out.htm"));
}

TEST_F(ReportCommandTest, ReplacesAFileOnlyWhenToldTo) {
  drives_.Write("out.htm", "old");
  EXPECT_EQ(Run({"c:\\out.htm", "c:\\music"}), 1);
  EXPECT_EQ(Err(), "qublet: c:\\out.htm: it exists; --replace replaces it\n");
  EXPECT_EQ(drives_.Read("out.htm"), "old");
  EXPECT_EQ(Run({"--replace", "c:\\out.htm", "c:\\music"}), 0);
  EXPECT_NE(drives_.Read("out.htm"), "old");
}

TEST_F(ReportCommandTest, SaysWhenItCouldNotBeWritten) {
  drives_.Write("out.htm", "old");
  files_->SetAttributes("c:\\out.htm", kReadOnly);
  EXPECT_EQ(Run({"--replace", "c:\\out.htm", "c:\\music"}), 1);
  EXPECT_EQ(Err(), "qublet: c:\\out.htm: read-only\n");
  EXPECT_EQ(Run({"c:\\none\\out.htm", "c:\\music"}), 1);
}

TEST_F(ReportCommandTest, KeepsSettingsWithTheirPlaceholders) {
  EXPECT_EQ(Run({"--save-settings", "c:\\a.rpt"}), 0);
  ReportSettings defaults;
  LoadDefaults(defaults);
  EXPECT_EQ(Kept("a.rpt"), defaults);
  EXPECT_EQ(Run({"--set", "Title=One", "--save-settings", "c:\\a.rpt"}), 0);
  EXPECT_EQ(Kept("a.rpt").Title, "One");
}

TEST_F(ReportCommandTest, SetsEveryField) {
  EXPECT_EQ(Run({"--set",           "RepType=1",
                 "--set",           "Title=a=b",
                 "--set",           "Description=one\ntwo\r\nthree",
                 "--set",           "Summary=0",
                 "--set",           "ColumnHeaders=0",
                 "--set",           "SaveRel=0",
                 "--set",           "TableWidth=16",
                 "--set",           "TableSpacing=2",
                 "--set",           "TablePadding=4",
                 "--set",           "TableBorder=12345",
                 "--set",           "Delimiter=;;",
                 "--set",           "SpaceAligned=0",
                 "--set",           "TabDelimited=1",
                 "--set",           "CommaDelimited=1",
                 "--set",           "CustomDelimited=1",
                 "--set",           "FontName=A font with a long name",
                 "--set",           "FontSize=-3",
                 "--set",           "ColorTable=0",
                 "--columns",       "21,3",
                 "--save-settings", "c:\\a.rpt"}),
            0)
      << Err();
  const ReportSettings kept = Kept("a.rpt");
  EXPECT_EQ(kept.RepType, 1);
  EXPECT_EQ(kept.Title, "a=b");
  EXPECT_EQ(kept.Description, "one\r\ntwo\r\nthree");
  EXPECT_FALSE(kept.Summary || kept.ColumnHeaders || kept.SaveRel || kept.SpaceAligned || kept.ColorTable);
  EXPECT_EQ(kept.TableWidth + " " + kept.TableSpacing + " " + kept.TablePadding + " " + kept.TableBorder,
            "16 2 4 123");
  EXPECT_EQ(kept.Delimiter, ";;");
  EXPECT_TRUE(kept.TabDelimited && kept.CommaDelimited && kept.CustomDelimited);
  EXPECT_EQ(kept.FontName, "A font with a long n");
  EXPECT_EQ(kept.FontSize, -3);
  EXPECT_EQ(kept.ColumnOrder[0], 21);
  EXPECT_EQ(kept.ColumnOrder[1], 3);
  EXPECT_EQ(kept.ColumnOrder[2], 1);
  EXPECT_EQ(kept.ColumnOrder[3], 2);
  EXPECT_EQ(kept.ColumnOrder[4], 4);
  EXPECT_EQ(kept.ColumnOrder[20], 20);
  EXPECT_TRUE(kept.ColumnChecked[0] && kept.ColumnChecked[1]);
  EXPECT_FALSE(kept.ColumnChecked[2] || kept.ColumnChecked[20]);
}

TEST_F(ReportCommandTest, TakesTheTypeFromTheNameAndThenFromTheFields) {
  EXPECT_EQ(Run({"--set", "RepType=1", "--save-settings", "c:\\text.rpt"}), 0);
  EXPECT_EQ(Run({"--settings", "c:\\text.rpt", "c:\\a.htm", "c:\\music"}), 0);
  EXPECT_TRUE(drives_.Read("a.htm").starts_with("<head>"));
  EXPECT_EQ(Run({"--set", "RepType=0", "c:\\a.txt", "c:\\music"}), 0);
  EXPECT_TRUE(drives_.Read("a.txt").starts_with("<head>"));
}

TEST_F(ReportCommandTest, TakesTheLastOfTwoValues) {
  EXPECT_EQ(Run({"--set", "Title=a", "--set", "Title=b", "--save-settings", "c:\\a.rpt"}), 0);
  EXPECT_EQ(Kept("a.rpt").Title, "b");
}

TEST_F(ReportCommandTest, ReadsSettingsThatAreThere) {
  EXPECT_EQ(Run({"--settings", "c:\\none.rpt", "c:\\a.htm", "c:\\music"}), 1);
  EXPECT_EQ(Err(), "qublet: c:\\none.rpt: no such file or folder\n");
  EXPECT_FALSE(files_->Attributes("c:\\a.htm"));
}

TEST_F(ReportCommandTest, ShowsItsUseForAnythingElse) {
  for (const Arguments& arguments : std::vector<Arguments>{{},
                                                           {"c:\\a.htm"},
                                                           {"--odd", "c:\\a.htm", "c:\\music"},
                                                           {"--set", "Odd=1", "c:\\a.htm", "c:\\music"},
                                                           {"--set", "ColumnOrder=1", "c:\\a.htm", "c:\\music"},
                                                           {"--set", "Summary=2", "c:\\a.htm", "c:\\music"},
                                                           {"--set", "FontSize=big", "c:\\a.htm", "c:\\music"},
                                                           {"--set", "FontSize=40000", "c:\\a.htm", "c:\\music"},
                                                           {"--set", "Title", "c:\\a.htm", "c:\\music"},
                                                           {"--columns", "0", "c:\\a.htm", "c:\\music"},
                                                           {"--columns", "22", "c:\\a.htm", "c:\\music"},
                                                           {"--columns", "1,,2", "c:\\a.htm", "c:\\music"},
                                                           {"--columns", "1,1", "c:\\a.htm", "c:\\music"},
                                                           {"--columns"},
                                                           {"--save-settings", "c:\\a.rpt", "c:\\music"}}) {
    EXPECT_EQ(Run(arguments), 2);
    EXPECT_TRUE(Err().starts_with("qublet: report: ")) << Err();
  }
}

}  // namespace
}  // namespace qublet

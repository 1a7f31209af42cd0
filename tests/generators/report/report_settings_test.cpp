#include "generators/report/report_settings.h"

#include <gtest/gtest.h>

#include <memory>

#include "support/temporary_drives.h"

namespace qublet {
namespace {

using namespace std::string_literals;

std::string Padded(std::string text, std::size_t width) {
  text.resize(width, ' ');
  return text;
}

const std::string kYes = "\xFF\xFF";
const std::string kNo(2, '\0');

// Made by hand.
std::string DefaultRecord() {
  std::string record =
      "\0\0"s + Padded("Report Title", 200) + Padded("Report Description", 1000) + kYes + kYes + kYes;
  record += "Auto1  3  0  ";
  for (char number = 1; number <= 21; ++number) record += number + "\0"s;
  record += kYes + kNo;
  for (int place = 2; place < 21; ++place) record += kYes;
  record += ":  " + kYes + kNo + kNo + kNo + Padded("Verdana", 20) + "\0\0"s + kYes;
  return record;
}

ReportSettings Defaults() {
  ReportSettings settings;
  LoadDefaults(settings);
  return settings;
}

class ReportSettingsTest : public testing::Test {
 protected:
  TemporaryDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
};

TEST_F(ReportSettingsTest, AreWrittenByteForByte) {
  EXPECT_EQ(DefaultRecord().size(), 1340u);
  EXPECT_TRUE(SaveReportSettings(*files_, "c:\\a.rpt", Defaults()));
  EXPECT_EQ(drives_.Read("a.rpt"), DefaultRecord());
}

TEST_F(ReportSettingsTest, ComeBackAsTheyWere) {
  ReportSettings settings = Defaults();
  settings.RepType = kTextReport;
  settings.Title = " Songs";
  settings.Description = "two\r\nlines";
  std::swap(settings.ColumnOrder[0], settings.ColumnOrder[20]);
  settings.ColumnChecked[5] = false;
  settings.FontSize = 6;
  EXPECT_TRUE(SaveReportSettings(*files_, "c:\\a.rpt", settings));
  ReportSettings read;
  EXPECT_TRUE(LoadReportSettings(*files_, "c:\\a.rpt", read));
  EXPECT_EQ(read, settings);
}

struct FieldPlace {
  const char* name;
  std::size_t offset;
  void (*set)(ReportSettings& settings);
  std::string bytes;
};

class ReportField : public testing::TestWithParam<FieldPlace> {};

TEST_P(ReportField, StandsAtItsPlace) {
  ReportSettings settings = Defaults();
  GetParam().set(settings);
  std::string wanted = DefaultRecord();
  wanted.replace(GetParam().offset, GetParam().bytes.size(), GetParam().bytes);
  EXPECT_EQ(ReportRecord(settings), wanted);
  EXPECT_EQ(ReportSettingsOf(wanted), settings);
}

using Settings = ReportSettings;

INSTANTIATE_TEST_SUITE_P(
    , ReportField,
    testing::Values(FieldPlace{"RepType", 0, [](Settings& s) { s.RepType = 0x1234; }, "\x34\x12"},
                    FieldPlace{"Title", 2, [](Settings& s) { s.Title = "\u00C9tude Titles"; }, "\xC9tude Titles"},
                    FieldPlace{"Description", 202, [](Settings& s) { s.Description = "a\r\nb"; },
                               "a\r\nb" + std::string(20, ' ')},
                    FieldPlace{"Summary", 1202, [](Settings& s) { s.Summary = false; }, kNo},
                    FieldPlace{"ColumnHeaders", 1204, [](Settings& s) { s.ColumnHeaders = false; }, kNo},
                    FieldPlace{"SaveRel", 1206, [](Settings& s) { s.SaveRel = false; }, kNo},
                    FieldPlace{"TableWidth", 1208, [](Settings& s) { s.TableWidth = "2000"; }, "2000"},
                    FieldPlace{"TableSpacing", 1212, [](Settings& s) { s.TableSpacing = "24"; }, "24 "},
                    FieldPlace{"TablePadding", 1215, [](Settings& s) { s.TablePadding = "123"; }, "123"},
                    FieldPlace{"TableBorder", 1218, [](Settings& s) { s.TableBorder = "5"; }, "5  "},
                    FieldPlace{"ColumnOrder", 1221, [](Settings& s) { s.ColumnOrder[0] = 7; }, "\x07\0"s},
                    FieldPlace{"LastOfTheOrder", 1261, [](Settings& s) { s.ColumnOrder[20] = -1; }, "\xFF\xFF"},
                    FieldPlace{"ColumnChecked", 1263, [](Settings& s) { s.ColumnChecked[0] = false; }, kNo},
                    FieldPlace{"LastChecked", 1303, [](Settings& s) { s.ColumnChecked[20] = false; }, kNo},
                    FieldPlace{"Delimiter", 1305, [](Settings& s) { s.Delimiter = ";;"; }, ";; "},
                    FieldPlace{"SpaceAligned", 1308, [](Settings& s) { s.SpaceAligned = false; }, kNo},
                    FieldPlace{"TabDelimited", 1310, [](Settings& s) { s.TabDelimited = true; }, kYes},
                    FieldPlace{"CommaDelimited", 1312, [](Settings& s) { s.CommaDelimited = true; }, kYes},
                    FieldPlace{"CustomDelimited", 1314, [](Settings& s) { s.CustomDelimited = true; }, kYes},
                    FieldPlace{"FontName", 1316, [](Settings& s) { s.FontName = "Courier"; }, "Courier"},
                    FieldPlace{"FontSize", 1336, [](Settings& s) { s.FontSize = 6; }, "\x06\0"s},
                    FieldPlace{"ColorTable", 1338, [](Settings& s) { s.ColorTable = false; }, kNo}),
    [](const auto& place) { return place.param.name; });

TEST_F(ReportSettingsTest, CutTextsToTheirWidth) {
  ReportSettings settings = Defaults();
  settings.Title = std::string(250, 't');
  settings.FontName = std::string(40, 'f');
  settings.Delimiter = "1234";
  const ReportSettings kept = ReportSettingsOf(ReportRecord(settings));
  EXPECT_EQ(kept.Title, std::string(200, 't'));
  EXPECT_EQ(kept.FontName, std::string(20, 'f'));
  EXPECT_EQ(kept.Delimiter, "123");
}

TEST_F(ReportSettingsTest, FillAShortFileUpWithZeros) {
  drives_.Write("a.rpt", DefaultRecord().substr(0, 1223));
  ReportSettings read;
  EXPECT_TRUE(LoadReportSettings(*files_, "c:\\a.rpt", read));
  EXPECT_EQ(read.ColumnOrder[0], 1);
  EXPECT_EQ(read.ColumnOrder[1], 0);
  EXPECT_EQ(read.FontName, "");
  EXPECT_FALSE(read.ColorTable);
}

TEST_F(ReportSettingsTest, KeepTheTailOfALongerFile) {
  drives_.Write("a.rpt", std::string(1350, 'o'));
  EXPECT_TRUE(SaveReportSettings(*files_, "c:\\a.rpt", Defaults()));
  EXPECT_EQ(drives_.Read("a.rpt"), DefaultRecord() + std::string(10, 'o'));
}

TEST_F(ReportSettingsTest, StayAsTheyAreWhenThereIsNoFile) {
  ReportSettings settings = Defaults();
  EXPECT_FALSE(LoadReportSettings(*files_, "c:\\none.rpt", settings));
  EXPECT_EQ(settings, Defaults());
  EXPECT_FALSE(SaveReportSettings(*files_, "c:\\none\\a.rpt", settings));
}

}  // namespace
}  // namespace qublet

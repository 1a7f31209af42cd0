#include "playlist/list_status.h"

#include <gtest/gtest.h>

#include "support/song_list_test_base.h"

namespace qublet {
namespace {

using Panels = std::array<std::string, 3>;

using ListStatusTest = SongListTestBase;

TEST_F(ListStatusTest, ShowsZerosForAnEmptyList) {
  EXPECT_EQ(Status().panels, (Panels{"Total: 0", "0:00", "0 Bytes"}));
}

TEST_F(ListStatusTest, ShowsTheTotalsWithNothingSelected) {
  AddSongs();
  Select("----", 2);
  EXPECT_EQ(Status().panels, (Panels{"Total: 4", "1:04:06", "19 Mb"}));
}

TEST_F(ListStatusTest, EndsSumsAtTheLargestNumber) {
  for (int i = 1; i <= 3; ++i) {
    std::vector<Row> row(1);
    row[0].cells[kHiddenLen] = row[0].cells[kHiddenSize] = "9223372036854775807";
    Rows().Insert(i, std::move(row));
  }
  EXPECT_EQ(Status().panels, (Panels{"Total: 3", "2562047788015215:30:07", "8,796,093,022,208 Mb"}));
}

TEST_F(ListStatusTest, ShowsLengthStartAndSizeOfOneSelectedRow) {
  AddSongs();
  Select("x---", 1);
  EXPECT_EQ(Status().panels, (Panels{"Track: 1/4", "1:00[0:00]", "1,000 Bytes"}));
  Select("-x--", 2);
  EXPECT_EQ(Status().panels, (Panels{"Track: 2/4", "2:05[1:00]", "20 Kb"}));
  Select("---x", 4);
  EXPECT_EQ(Status().panels, (Panels{"Track: 4/4", "1:01:01[3:05]", "19 Mb"}));
}

TEST_F(ListStatusTest, ShowsDashesForOneSelectedRowWhoseFileIsMissing) {
  AddSongs();
  Select("--x-", 3);
  EXPECT_EQ(Status().panels, (Panels{"Track: 3/4", "-", "-"}));
  std::filesystem::remove(drives_.C() / "1.mp3");
  Select("x---", 1);
  EXPECT_EQ(Status().panels, (Panels{"Track: 1/4", "-", "-"})) << "the disk decides, not the icon";
}

TEST_F(ListStatusTest, SpeaksOfTheOneSelectedRowWhereverTheFocusIs) {
  AddSongs();
  for (const int focused : {0, 1, 3, 4}) {
    Select("-x--", focused);
    EXPECT_EQ(Status().panels, (Panels{"Track: 2/4", "2:05[1:00]", "20 Kb"})) << focused;
    EXPECT_TRUE(Status().facts.file_there) << focused;
    Select("--x-", focused);
    EXPECT_EQ(Status().panels, (Panels{"Track: 3/4", "-", "-"})) << focused;
    EXPECT_FALSE(Status().facts.file_there) << focused;
  }
}

TEST_F(ListStatusTest, ShowsTheSumsOfSeveralSelectedRows) {
  AddSongs();
  Select("xx--", 4);
  EXPECT_EQ(Status().panels, (Panels{"2 Items", "3:05", "21 Kb"}));
  Select("xxxx", 1);
  EXPECT_EQ(Status().panels, (Panels{"4 Items", "1:04:06", "19 Mb"}));
}

TEST_F(ListStatusTest, TakesEmptyAndUnreadableCellsForZeroAndTheWholePartOfOthers) {
  AddRow("1.mp3", "", "x");
  AddRow("2.mp3", "10.9", "2000.9");
  EXPECT_EQ(Status().panels, (Panels{"Total: 2", "0:10", "2,000 Bytes"}));
}

TEST_F(ListStatusTest, AddsUpBeyond32Bits) {
  for (int i = 0; i < 3; ++i) AddRow("1.mp3", "2147483647", "2147483647");
  EXPECT_EQ(Status().panels, (Panels{"Total: 3", "1789569:42:21", "6,144 Mb"}));
}

TEST_F(ListStatusTest, GroupsDigitsAsTheLocaleDoes) {
  AddRow("1.mp3", "1", "16384");
  EXPECT_EQ(WorkOutStatus(Rows(), *files_, settings_, "'").panels[2], "16'384 Bytes");
}

using Warnings = std::array<std::optional<bool>, 3>;

TEST_F(ListStatusTest, WarnsOnlyWhereAskedToAndFromTheLimitOn) {
  LoadDefaultSettings(settings_, {});
  EXPECT_EQ(UpdateLimitWarnings(100, 1'000'000'000, 100'000, settings_), (Warnings{false, false, false}));
  settings_.PLTCC = settings_.PLTTC = settings_.PLTSC = true;
  EXPECT_EQ(UpdateLimitWarnings(14, 120 * 1048576 - 1, 4799, settings_), (Warnings{false, false, false}));
  EXPECT_EQ(UpdateLimitWarnings(15, 120 * 1048576, 4800, settings_), (Warnings{true, true, true}));
}

TEST_F(ListStatusTest, SaysNothingOfASizeLimitThatCannotBeWorkedOut) {
  settings_.PLTSC = true;
  settings_.PLTSP = 2048;
  EXPECT_EQ(UpdateLimitWarnings(0, 0, 0, settings_)[2], std::nullopt);
  settings_.PLTSP = 2047;
  EXPECT_EQ(UpdateLimitWarnings(0, 0, 0, settings_)[2], false);
}

}  // namespace
}  // namespace qublet

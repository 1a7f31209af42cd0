#include "playlist/list_status.h"

#include <gtest/gtest.h>

#include "support/list_test_base.h"

namespace qublet {
namespace {

using Panels = std::array<std::string, 3>;

class ListStatusTest : public ListTestBase {
 protected:
  // A row of this length and size; its file is there if `present`.
  void AddRow(const std::string& name, const std::string& length, const std::string& size, bool present = true) {
    if (present) Touch({name});
    Row row = NamedRow(name);
    row.cells[kPath] = "c:\\";
    row.cells[kHiddenLen] = length;
    row.cells[kHiddenSize] = size;
    Rows().Insert(Rows().Count() + 1, {row});
  }
  // Three songs of 1:00, 2:05 and 1:01:01 and a missing one between them.
  void AddSongs() {
    AddRow("1.mp3", "60", "1000");
    AddRow("2.mp3", "125", "20000");
    AddRow("gone.mp3", "", "", false);
    AddRow("3.mp3", "3661", "20000000");
  }
  void Select(const std::string& letters, int focused) {
    Rows().SelectWhere([&](int index, const Row&) { return letters.at(static_cast<std::size_t>(index - 1)) == 'x'; });
    Rows().SetFocusedRow(focused);
  }
  ListStatus Status() { return WorkOutStatus(Rows(), *files_, settings_, ","); }
  // What the status says of a menu entry; the last word counts.
  std::string Enabled(const std::string& name) {
    std::string word = "unsaid";
    for (const CommandState& command : Status().commands) {
      if (command.name == name) word = command.enabled ? "enabled" : "disabled";
    }
    return word;
  }
  void ExpectAll(const std::vector<std::string>& names, const std::string& word) {
    for (const std::string& name : names) EXPECT_EQ(Enabled(name), word) << name;
  }

  AppSettings settings_;
};

TEST_F(ListStatusTest, ShowsZerosForAnEmptyList) {
  EXPECT_EQ(Status().panels, (Panels{"Total: 0", "0:00", "0 Bytes"}));
}

TEST_F(ListStatusTest, ShowsTheTotalsWithNothingSelected) {
  AddSongs();
  Select("----", 2);
  EXPECT_EQ(Status().panels, (Panels{"Total: 4", "1:04:06", "19 Mb"}));
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
    EXPECT_EQ(Enabled("Mreloc"), "disabled") << focused;
    Select("--x-", focused);
    EXPECT_EQ(Status().panels, (Panels{"Track: 3/4", "-", "-"})) << focused;
    EXPECT_EQ(Enabled("Mreloc"), "enabled") << focused;
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

const std::vector<std::string> kForAnySelection{
    "MEditRemove", "MEditPlaySel", "MEditPlayFol",  "MEditPlayLoc", "MEditSelAlt",       "MEditSelNone",
    "MEditSelLoc", "MEditSeMark",  "MEditSeUnMark", "MEditSelFol",  "MToolsBookmarkAdd", "MEditSelShuffle"};

TEST_F(ListStatusTest, LeavesOnlySelectAllOfTheSelectionCommandsOnAnEmptyList) {
  ExpectAll(kForAnySelection, "disabled");
  ExpectAll({"MEditSelTop", "MEditSelBottom", "MEditId3", "MEditFileInfo", "MEditMoveUp", "MEditMoveDown", "Mreloc"},
            "disabled");
  EXPECT_EQ(Enabled("MEditSelAll"), "enabled");
}

TEST_F(ListStatusTest, EnablesCommandsForOnePresentRow) {
  AddSongs();
  Select("-x--", 2);
  ExpectAll(kForAnySelection, "enabled");
  ExpectAll({"MEditSelAll", "MEditSelTop", "MEditSelBottom", "MEditMoveUp", "MEditMoveDown", "MEditId3",
             "MEditFileInfo", "MEditPlaySel"},
            "enabled");
  ExpectAll({"Mreloc", "Mrelocs"}, "disabled");
}

TEST_F(ListStatusTest, OffersRelocationForOneMissingRow) {
  AddSongs();
  Select("--x-", 3);
  ExpectAll({"Mreloc", "Mrelocs"}, "enabled");
  ExpectAll({"MEditId3", "MEditFileInfo", "MEditPlaySel"}, "disabled");
}

TEST_F(ListStatusTest, KeepsTheTagEditorForSeveralRowsWithAMissingOneAmongThem) {
  AddSongs();
  Select("-xx-", 3);
  ExpectAll({"MEditId3", "MEditSelAll", "MEditSelTop", "MEditSelBottom"}, "enabled");
  ExpectAll({"Mreloc", "MEditFileInfo"}, "disabled");
}

TEST_F(ListStatusTest, DoesNotMoveBeyondTheEnds) {
  AddSongs();
  Select("x---", 1);
  ExpectAll({"MEditMoveUp", "MEditSelTop"}, "disabled");
  ExpectAll({"MEditMoveDown", "MEditSelBottom"}, "enabled");
  Select("---x", 4);
  ExpectAll({"MEditMoveUp", "MEditSelTop"}, "enabled");
  ExpectAll({"MEditMoveDown", "MEditSelBottom"}, "disabled");
  Select("xxxx", 4);
  ExpectAll({"MEditSelAll", "MEditSelTop", "MEditSelBottom", "MEditMoveUp", "MEditMoveDown"}, "disabled");
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

#include "desk/commands.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/song_list_test_base.h"

namespace qublet {
namespace {

class CommandsTest : public SongListTestBase {
 protected:
  // Everything is bound.
  CommandsTest() {
    for (std::size_t i = 0; i < kMenu.size(); ++i) {
      commands_.Bind(CommandName::At(i), [this, i] { ran_.push_back(kMenu[i].name); });
    }
  }

  std::string Enabled(const std::string& name) {
    return commands_.IsEnabled(CommandName::Find(name).value(), Status().facts) ? "enabled" : "disabled";
  }
  void ExpectAll(const std::vector<std::string>& names, const std::string& word) {
    for (const std::string& name : names) EXPECT_EQ(Enabled(name), word) << name;
  }

  Commands commands_{feedback_};
  std::vector<std::string_view> ran_;
};

const std::vector<std::string> kForAnySelection{
    "MEditRemove", "MEditPlaySel", "MEditPlayFol",  "MEditPlayLoc", "MEditSelAlt",       "MEditSelNone",
    "MEditSelLoc", "MEditSeMark",  "MEditSeUnMark", "MEditSelFol",  "MToolsBookmarkAdd", "MEditSelShuffle"};

TEST_F(CommandsTest, LeavesOnlySelectAllOfTheSelectionCommandsOnAnEmptyList) {
  ExpectAll(kForAnySelection, "disabled");
  ExpectAll({"MEditSelTop", "MEditSelBottom", "MEditId3", "MEditFileInfo", "MEditMoveUp", "MEditMoveDown", "Mreloc"},
            "disabled");
  EXPECT_EQ(Enabled("MEditSelAll"), "enabled");
}

TEST_F(CommandsTest, EnablesCommandsForOnePresentRow) {
  AddSongs();
  Select("-x--", 2);
  ExpectAll(kForAnySelection, "enabled");
  ExpectAll({"MEditSelAll", "MEditSelTop", "MEditSelBottom", "MEditMoveUp", "MEditMoveDown", "MEditId3",
             "MEditFileInfo", "MEditPlaySel"},
            "enabled");
  ExpectAll({"Mreloc", "Mrelocs"}, "disabled");
}

TEST_F(CommandsTest, OffersRelocationForOneMissingRow) {
  AddSongs();
  Select("--x-", 3);
  ExpectAll({"Mreloc", "Mrelocs"}, "enabled");
  ExpectAll({"MEditId3", "MEditFileInfo", "MEditPlaySel"}, "disabled");
}

TEST_F(CommandsTest, KeepsTheTagEditorForSeveralRowsWithAMissingOneAmongThem) {
  AddSongs();
  Select("-xx-", 3);
  ExpectAll({"MEditId3", "MEditSelAll", "MEditSelTop", "MEditSelBottom"}, "enabled");
  ExpectAll({"Mreloc", "MEditFileInfo"}, "disabled");
}

TEST_F(CommandsTest, DoesNotMoveBeyondTheEnds) {
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

TEST_F(CommandsTest, NeverDisablesASubmenuOrASeparatorForLackOfAHandler) {
  const Commands nothing_bound(feedback_);
  AddSongs();
  Select("x---", 1);
  for (std::size_t i = 0; i < kMenu.size(); ++i) {
    const bool wanted = kMenu[i].name != "Mrelocs" && (kMenu[i].IsSubmenu() || kMenu[i].IsSeparator());
    EXPECT_EQ(nothing_bound.IsEnabled(CommandName::At(i), Status().facts), wanted) << kMenu[i].caption;
  }
}

TEST_F(CommandsTest, RunsWhatIsBound) {
  commands_.Run("MFileNew");
  commands_.Run("MHelpAbout");
  EXPECT_EQ(ran_, (std::vector<std::string_view>{"MFileNew", "MHelpAbout"}));
  EXPECT_NO_THROW(Commands(feedback_).Run("MFileNew"));
}

class BusyFeedback : public Feedback {
 public:
  bool Busy() const override { return busy; }
  bool busy = true;
};

TEST_F(CommandsTest, RefusesEverythingWhileABatchRuns) {
  BusyFeedback feedback;
  Commands commands(feedback);
  int runs = 0;
  commands.Bind("MFileNew", [&] { ++runs; });
  commands.Run("MFileNew");
  commands.Run([&] { ++runs; });
  EXPECT_EQ(runs, 0);
  feedback.busy = false;
  commands.Run("MFileNew");
  commands.Run([&] { ++runs; });
  EXPECT_EQ(runs, 2);
}

TEST_F(CommandsTest, FindsNamesThatAreKnownOnlyAtRunTime) {
  EXPECT_EQ(CommandName::Find("MEditSelAll"), CommandName("MEditSelAll"));
  EXPECT_FALSE(CommandName::Find("MEditSelAl"));
  EXPECT_FALSE(CommandName::Find("")) << "separators without a name are nobody";
}

}  // namespace
}  // namespace qublet

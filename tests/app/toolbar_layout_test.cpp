#include "app/toolbar_layout.h"

#include <gtest/gtest.h>

namespace qublet {
namespace {

TEST(ToolbarLayoutText, NamesEveryButtonOfTheDefaultInItsOrder) {
  EXPECT_EQ(LayoutText(DefaultToolbarLayout()),
            "New;Open;Save;Separator;Add Items;Remove Items;Separator;Move Items Up;Move Items Down;Separator;"
            "Play Items;Preview Playlist;Edit Id3 Tag;Separator;Tools Drop Down;Separator;Help;Separator;");
}

TEST(ToolbarLayoutText, ComesBackAsItWas) {
  for (const ToolbarLayout& layout : {DefaultToolbarLayout(), ToolbarLayout{17, 4, 4, 1}, ToolbarLayout{}})
    EXPECT_EQ(LayoutFromText(LayoutText(layout)), layout);
}

TEST(ToolbarLayoutText, GivesTheDefaultWhenNothingIsStored) {
  EXPECT_EQ(LayoutFromText(""), DefaultToolbarLayout());
}

TEST(ToolbarLayoutText, LeavesOutUnknownKeysAndRepeatedButtons) {
  EXPECT_EQ(LayoutFromText("Help;Nonsense;New;Help;;Separator;Separator"), (ToolbarLayout{17, 1, 4, 4}));
  EXPECT_EQ(LayoutFromText(";;"), ToolbarLayout{});
}

TEST(ButtonsBesideALayout, AreTheOthersAndAlwaysTheGap) {
  EXPECT_EQ(ButtonsBeside(DefaultToolbarLayout()), ToolbarLayout{kSeparatorButton});
  EXPECT_EQ(ButtonsBeside({1, 2, 3, 5, 6, 8, 9, 11, 4, 15}), (ToolbarLayout{kSeparatorButton, 12, 13, 17}));
}

}  // namespace
}  // namespace qublet

#include "tools/purge/missing_items.h"

#include <gtest/gtest.h>

#include "support/counted_listings.h"
#include "support/purge_test_base.h"

namespace qublet {
namespace {

using Numbers = std::vector<int>;

class MissingItemsTest : public PurgeTestBase {
 protected:
  MissingItems Find() {
    return FindMissingItems(Rows(), *files_, [this] { ++alive_; });
  }
  std::string Absent(const Collection& paths) {
    return AbsentPlacesOf(paths, *files_, [this] { ++alive_; });
  }
};

TEST_F(MissingItemsTest, FindsRowsWithoutAFile) {
  Touch({"a.mp3", "m/c.mp3"});
  AddPaths({"c:\\a.mp3", "c:\\b.mp3", "c:\\m\\c.mp3", "e:\\a.mp3"});
  const MissingItems missing = Find();
  EXPECT_EQ(missing.MissingRows, (Numbers{2, 4}));
  EXPECT_EQ(missing.MissingPaths, (Collection{"c:\\b.mp3", "e:\\a.mp3"}));
  EXPECT_EQ(alive_, 4);
}

TEST_F(MissingItemsTest, ARelativeRowIsMissingThoughTheFileIsThere) {
  Touch({"m/a.mp3"});
  AddRow("m\\", "a.mp3");
  AddRow("c:\\m\\", "a.mp3");
  EXPECT_EQ(Find().MissingPaths, Collection{"m\\a.mp3"});
}

TEST_F(MissingItemsTest, AFolderAndAFittingPatternCountAsThere) {
  Touch({"m/a.mp3"});
  AddRow("c:\\", "m");
  AddRow("c:\\m\\", "*.mp3");
  AddRow("c:\\m\\", "?.ogg");
  AddRow("", "");
  EXPECT_EQ(Find().MissingRows, (Numbers{3, 4}));
}

TEST_F(MissingItemsTest, ListsAFolderOnceForAllRowsThatArePatterns) {
  Touch({"m/a.mp3"});
  AddRow("c:\\m\\", "*.mp3");
  for (int i = 1; i <= 10; ++i) AddRow("c:\\m\\", "?" + std::to_string(i) + ".mp3");
  const CountedListings counted(*files_);
  EXPECT_EQ(FindMissingItems(Rows(), counted, [] {}).MissingRows.size(), 10u);
  EXPECT_EQ(counted.OfAll(), 1);
}

TEST_F(MissingItemsTest, TakesWhateverANameMayHold) {
  const std::string longest(251, 'x');
  Touch({"[a].mp3", longest + ".mp3"});
  AddPaths(
      {"c:\\[a].mp3", "c:\\[b].mp3", "c:\\" + longest + ".mp3", "c:\\" + longest + "x.mp3", "c:\\two\nlines.mp3"});
  EXPECT_EQ(Find().MissingRows, (Numbers{2, 4, 5}));
}

TEST_F(MissingItemsTest, NamesPlacesThatArentThereNow) {
  EXPECT_EQ(Absent({"e:\\a.mp3", "c:\\b.mp3", "f:\\c.mp3", "E:\\d.mp3", "m\\e.mp3"}),
            "3 of them lie on places that aren't there now: e:, f:");
  EXPECT_EQ(Absent({"c:\\b.mp3"}), "");
  EXPECT_EQ(Absent({}), "");
}

TEST_F(MissingItemsTest, RemovesRowsByTheirNumbers) {
  AddPaths({"c:\\1.mp3", "c:\\2.mp3", "c:\\3.mp3", "c:\\4.mp3", "c:\\5.mp3"});
  RemoveRows(Rows(), {1, 3, 5});
  EXPECT_EQ(Paths(), "c:\\2.mp3|c:\\4.mp3");
  RemoveRows(Rows(), {});
  EXPECT_EQ(Paths(), "c:\\2.mp3|c:\\4.mp3");
}

TEST_F(MissingItemsTest, AFileThatTheDiskHasInAnotherCaseIsThere) {
  Touch({"Music/Song.mp3"});
  AddRow("c:\\MUSIC\\", "SONG.MP3");
  AddRow("c:\\music\\", "gone.mp3");
  EXPECT_EQ(Find().MissingRows, Numbers{2});
}

}  // namespace
}  // namespace qublet

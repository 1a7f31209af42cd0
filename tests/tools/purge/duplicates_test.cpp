#include "tools/purge/duplicates.h"

#include <gtest/gtest.h>

#include "support/row_texts.h"

namespace qublet {
namespace {

using Numbers = std::vector<int>;

Row RowAt(const char* folder, const char* name) {
  Row row = NamedRow(name);
  row.cells[kPath] = folder;
  return row;
}

TEST(BuildDuplicateKeys, ComparesByNameFolderOrPath) {
  RowStore rows;
  rows.Insert(1, {RowAt("c:\\M\\", "A.mp3"), RowAt("d:\\", "\u00C4.mp3")});
  EXPECT_EQ(BuildDuplicateKeys(rows, DuplicateKey::kName, false), (Collection{"A.mp3", "\u00C4.mp3"}));
  EXPECT_EQ(BuildDuplicateKeys(rows, DuplicateKey::kFolder, false), (Collection{"c:\\M\\", "d:\\"}));
  EXPECT_EQ(BuildDuplicateKeys(rows, DuplicateKey::kPath, false), (Collection{"c:\\M\\A.mp3", "d:\\\u00C4.mp3"}));
  EXPECT_EQ(BuildDuplicateKeys(rows, DuplicateKey::kPath, true), (Collection{"c:\\m\\a.mp3", "d:\\\u00E4.mp3"}));
}

TEST(BuildDuplicateKeys, AnEmptyListHasNone) {
  const RowStore rows;
  EXPECT_EQ(BuildDuplicateKeys(rows, DuplicateKey::kPath, false), Collection{});
  EXPECT_EQ(FindDuplicates({}, true), Numbers{});
}

TEST(FindDuplicates, GivesAllOfARunOrAllButTheFirst) {
  const Collection keys = {"b", "a", "c", "b", "a", "b"};
  EXPECT_EQ(FindDuplicates(keys, true), (Numbers{1, 2, 4, 5, 6}));
  EXPECT_EQ(FindDuplicates(keys, false), (Numbers{4, 5, 6}));
  EXPECT_EQ(FindDuplicates({"a", "b", "c"}, true), Numbers{});
}

TEST(FindDuplicates, CountsRowsAscendingBeyondTen) {
  Collection keys(12, "same");
  EXPECT_EQ(FindDuplicates(keys, false), (Numbers{2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
}

TEST(FindDuplicates, ComparesExactlyButSortsWithoutCase) {
  EXPECT_EQ(FindDuplicates({"A.mp3", "a.mp3"}, true), Numbers{});
  // The sort leaves them as they are, so the two that are equal aren't neighbours.
  EXPECT_EQ(FindDuplicates({"a", "A", "a"}, true), Numbers{});
  EXPECT_EQ(FindDuplicates({"A", "a", "a"}, true), (Numbers{2, 3}));
  EXPECT_EQ(FindDuplicates({"\u00E4", "\u00C4", "\u00E4"}, true), Numbers{});
}

TEST(FindDuplicates, AnEmptyKeyRepeatsTheNothingBeforeTheFirstRow) {
  EXPECT_EQ(FindDuplicates({"a", ""}, false), Numbers{2});
  EXPECT_EQ(FindDuplicates({"a", ""}, true), Numbers{2});
  EXPECT_EQ(FindDuplicates({"", "a", ""}, true), (Numbers{1, 3}));
}

TEST(FindDuplicates, TakesWhateverANameMayHold) {
  const std::string longest(255, 'x');
  EXPECT_EQ(
      FindDuplicates({"[*?]", "\xFF\xFE", longest, "[*?]", "\xFF\xFE", longest, "two\nlines", "two\nlines"}, false),
      (Numbers{4, 5, 6, 8}));
}

}  // namespace
}  // namespace qublet

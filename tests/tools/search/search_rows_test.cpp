#include "tools/search/search_rows.h"

#include <gtest/gtest.h>

#include "support/row_texts.h"

namespace qublet {
namespace {

class SearchRowsTest : public testing::Test {
 protected:
  SearchRowsTest() {
    Row row;
    row.cells = {"A.MP3",    "3:20",      "4 Mb",         "c:\\songs\\", "MPEG 1.0", "Layer III",
                 "128 Kbit", "44100 Khz", "Joint Stereo", "200",         "4711",     "31"};
    rows.Insert(1, {row});
  }
  RowNumbers Search(std::string_view text) const { return SearchRows(rows, text, options, true); }
  void Tick(std::initializer_list<std::size_t> columns) {
    options.columns.fill(false);
    for (const std::size_t column : columns) options.columns.at(column) = true;
  }

  RowStore rows;
  SearchOptions options;
};

constexpr RowNumbers::value_type kFirst = 1;

TEST_F(SearchRowsTest, LooksAtNameAndFolderUnlessTold) {
  EXPECT_EQ(Search("mp3"), RowNumbers{kFirst});
  EXPECT_EQ(Search("SONGS\\"), RowNumbers{kFirst});
  for (const char* other : {"3:20", "4 Mb", "mpeg", "layer", "128", "44100", "stereo"})
    EXPECT_TRUE(Search(other).empty()) << other;
}

TEST_F(SearchRowsTest, LooksAtEachColumnThatIsTickedAndNoOther) {
  const char* const shown[] = {"a.mp3",     "c:\\songs\\", "3:20",      "4 mb",        "mpeg 1.0",
                               "layer iii", "128 kbit",    "44100 khz", "joint stereo"};
  for (std::size_t ticked = 0; ticked < kSearchColumns.size(); ++ticked) {
    Tick({ticked});
    for (std::size_t wanted = 0; wanted < kSearchColumns.size(); ++wanted)
      EXPECT_EQ(Search(shown[wanted]).size(), wanted == ticked ? 1U : 0U) << shown[wanted] << " in " << ticked;
  }
}

TEST_F(SearchRowsTest, LooksAtNoHiddenColumn) {
  Tick({0, 1, 2, 3, 4, 5, 6, 7, 8});
  for (const char* hidden : {"200", "4711", "31"}) EXPECT_TRUE(Search(hidden).empty()) << hidden;
}

TEST_F(SearchRowsTest, LooksNotAcrossColumns) {
  EXPECT_TRUE(Search("songs\\a.mp3").empty());
}

TEST_F(SearchRowsTest, FindsNothingWithoutAColumn) {
  Tick({});
  EXPECT_TRUE(Search("a").empty());
}

TEST_F(SearchRowsTest, NamesARowOnceHoweverOftenItHoldsTheText) {
  rows.SetCell(1, kPath, "c:\\a a\\A.MP3\\");
  EXPECT_EQ(Search("a"), RowNumbers{kFirst});
}

TEST_F(SearchRowsTest, KeepsCaseWhenThatCounts) {
  options.Mcasesensitive = true;
  EXPECT_TRUE(Search("mp3").empty());
  EXPECT_EQ(Search("MP3"), RowNumbers{kFirst});
}

TEST_F(SearchRowsTest, NamesRowsAscending) {
  rows.Insert(2, NamedRows({"b", "a1", "c", "1A"}));
  EXPECT_EQ(Search("a"), (RowNumbers{1, 3, 5}));
}

TEST_F(SearchRowsTest, PassesOverRowsThatAreNotSelectedUnlessAllAreMeant) {
  rows.Insert(2, NamedRows({"a2", "a3"}));
  EXPECT_TRUE(SearchRows(rows, "a", options, false).empty());
  rows.SetSelected(2, true);
  EXPECT_EQ(SearchRows(rows, "a", options, false), RowNumbers{2});
  EXPECT_EQ(SearchRows(rows, "a", options, true), (RowNumbers{1, 2, 3}));
}

TEST_F(SearchRowsTest, NamesTheLastRowOfAFullList) {
  rows.Clear();
  rows.Insert(1, std::vector<Row>(RowStore::MaxRows, NamedRow("x")));
  rows.SetCell(RowStore::MaxRows, kFileName, "wanted");
  EXPECT_EQ(Search("wanted"), RowNumbers{RowStore::MaxRows});
  EXPECT_EQ(Search("X").size(), static_cast<std::size_t>(RowStore::MaxRows - 1));
}

TEST_F(SearchRowsTest, FindsNothingInAnEmptyList) {
  rows.Clear();
  EXPECT_TRUE(Search("a").empty());
}

}  // namespace
}  // namespace qublet

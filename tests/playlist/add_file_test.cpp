#include "playlist/items_test_base.h"

namespace qublet {
namespace {

using AddFile = ItemsTest;

TEST_F(AddFile, WritesTheTwelveCells) {
  drives_.Write("music/Song.MP3", TextOf(Frames(100)));
  EXPECT_TRUE(items_.AddFile("C:\\music\\Song.MP3", 0, 0));
  EXPECT_EQ(Line(1), "Song.MP3|0:03|41 Kb|c:\\music\\|MPEG 1.0|Layer III|128 Kbit|44100 Hz|Joint Stereo|3|41700|1");
  EXPECT_EQ(Rows().At(1).icon, RowIcon::kNormal);
  EXPECT_FALSE(Rows().At(1).ghosted);
  EXPECT_FALSE(Rows().At(1).selected);
  EXPECT_EQ(Rows().At(1).key + Rows().At(1).tag, "");
  EXPECT_EQ(Rows().At(1).FullPath(), "c:\\music\\Song.MP3");
}

TEST_F(AddFile, ShowsSizesWithTheLocalesSeparator) {
  drives_.WriteSparse("a.ogg", "", 16384);
  Items german(document_, *files_, feedback_, view_, ".");
  EXPECT_TRUE(german.AddFile("c:\\a.ogg", 0, 0));
  EXPECT_EQ(Line(1), "a.ogg|0:00|16.384 Bytes|c:\\|OGG Vorbis|||||0|16384|1");
}

TEST_F(AddFile, AddsAtTheEndBelowIndexOneElseBeforeThatRow) {
  Touch({"a.mp3", "b.mp3", "c.mp3", "d.mp3"});
  EXPECT_TRUE(items_.AddFile("c:\\a.mp3", 0, 0));
  EXPECT_TRUE(items_.AddFile("c:\\b.mp3", -7, 0));
  EXPECT_TRUE(items_.AddFile("c:\\c.mp3", 1, 0));
  EXPECT_TRUE(items_.AddFile("c:\\d.mp3", 4, 0));
  EXPECT_EQ(Names(), "c.mp3 a.mp3 b.mp3 d.mp3");
  EXPECT_EQ(Orders(), "1 1 2 4") << "the row's index at that moment, which may repeat a number";
}

TEST_F(AddFile, TakesTheNumberForOriginalOrderUnlessItIsZero) {
  Touch({"a.mp3"});
  EXPECT_TRUE(items_.AddFile("c:\\a.mp3", 0, 77));
  EXPECT_TRUE(items_.AddFile("c:\\a.mp3", 1, -3));
  EXPECT_TRUE(items_.AddFile("c:\\a.mp3", 0, 0));
  EXPECT_EQ(Orders(), "-3 77 3");
}

TEST_F(AddFile, RefusesAnIndexPastTheEnd) {
  Touch({"a.mp3"});
  EXPECT_FALSE(items_.AddFile("c:\\a.mp3", 2, 0));
  EXPECT_EQ(Rows().Count(), 0);
  EXPECT_TRUE(items_.AddFile("c:\\a.mp3", 1, 0));
}

TEST_F(AddFile, RefusesRow32768) {
  Touch({"a.mp3"});
  Rows().Insert(1, std::vector<Row>(32766));
  EXPECT_TRUE(items_.AddFile("c:\\a.mp3", 0, 0));
  EXPECT_EQ(Rows().At(32767).cells[kOriginalOrder], "32767");
  EXPECT_FALSE(items_.AddFile("c:\\a.mp3", 0, 0));
  EXPECT_FALSE(items_.AddFile("c:\\a.mp3", 1, 0));
  EXPECT_EQ(Rows().Count(), 32767);
}

TEST_F(AddFile, GhostsAnEmptyFileThoughItIsThere) {
  drives_.Write("a.mp3", "");
  EXPECT_TRUE(items_.AddFile("c:\\a.mp3", 0, 5));
  EXPECT_EQ(Line(1), "a.mp3|0:00|0 Bytes|c:\\||||||||");
  EXPECT_EQ(Rows().At(1).icon, RowIcon::kMissing);
  EXPECT_TRUE(Rows().At(1).ghosted);
}

TEST_F(AddFile, GhostsAMissingFileAndKeepsItsPath) {
  EXPECT_TRUE(items_.AddFile("C:\\no\\Gone.mp3", 0, 0));
  EXPECT_EQ(Line(1), "Gone.mp3|0:00|0 Bytes|c:\\no\\||||||||");
  EXPECT_EQ(Rows().At(1).icon, RowIcon::kMissing);
  EXPECT_TRUE(Rows().At(1).ghosted);
  EXPECT_TRUE(items_.AddFile("q:\\Gone.mp3", 0, 0)) << "there is no such drive";
  EXPECT_EQ(Rows().At(2).FullPath(), "q:\\Gone.mp3");
}

TEST_F(AddFile, ShowsNoSizeForASingleByte) {
  drives_.Write("a.mp3", "x");
  EXPECT_TRUE(items_.AddFile("c:\\a.mp3", 0, 0));
  EXPECT_EQ(Line(1), "a.mp3|0:00||c:\\||||||0|1|1");
  EXPECT_EQ(Rows().At(1).icon, RowIcon::kNormal);
  EXPECT_FALSE(Rows().At(1).ghosted);
}

TEST_F(AddFile, CorrectsTheLengthOfAVaryingRate) {
  drives_.WriteSparse("a.mp3", TextOf(VaryingRate()), 1'305'600);
  EXPECT_TRUE(items_.AddFile("c:\\a.mp3", 0, 0));
  EXPECT_EQ(Rows().At(1).cells[kBitrate], "102 Kbit (VBR)");
  EXPECT_EQ(Rows().At(1).cells[kHiddenLen], "100") << "1305600 x 8 / (102 x 1024)";
  EXPECT_EQ(Rows().At(1).cells[kTime], "1:40");
}

TEST_F(AddFile, RoundsTheCorrectedLengthHalfToEven) {
  drives_.WriteSparse("a.mp3", TextOf(VaryingRate()), 13056 * 5 / 2);
  drives_.WriteSparse("b.mp3", TextOf(VaryingRate()), 13056 * 7 / 2);
  EXPECT_TRUE(items_.AddFile("c:\\a.mp3", 0, 0));
  EXPECT_TRUE(items_.AddFile("c:\\b.mp3", 0, 0));
  EXPECT_EQ(CellsOf(Rows(), kHiddenLen), "2 4");
}

TEST_F(AddFile, LeavesTheRowOfAVaryingRateFrom256MebibytesWithItsNameOnly) {
  drives_.WriteSparse("less.mp3", TextOf(VaryingRate()), 268'435'455);
  EXPECT_TRUE(items_.AddFile("c:\\less.mp3", 0, 0));
  EXPECT_EQ(Rows().At(1).cells[kHiddenLen], "20560");
  drives_.WriteSparse("more.mp3", TextOf(VaryingRate()), 268'435'456);
  EXPECT_FALSE(items_.AddFile("c:\\more.mp3", 0, 0));
  EXPECT_EQ(Line(2), "more.mp3|||||||||||");
  EXPECT_EQ(Rows().At(2).icon, RowIcon::kNormal);
  EXPECT_FALSE(Rows().At(2).ghosted);
}

TEST_F(AddFile, LeavesTheRowOfAVaryingRateOfZeroWithItsNameOnly) {
  drives_.Write("a.mp3", TextOf(VaryingRate(1000)));
  EXPECT_FALSE(items_.AddFile("c:\\a.mp3", 0, 0));
  EXPECT_EQ(Line(1), "a.mp3|||||||||||");
}

TEST_F(AddFile, CompletesARelativePathFromTheCurrentFolder) {
  Touch({"m/a.mp3", "m/rock/b.mp3"});
  files_->SetCurrentFolder("c:\\m");
  for (const char* path : {"a.mp3", "rock\\b.mp3", "gone.mp3", "rock\\gone.mp3"}) items_.AddFile(path, 0, 0);
  drives_.Write("m/rock/zero.mp3", "");
  items_.AddFile("rock\\zero.mp3", 0, 0);
  EXPECT_EQ(Paths(), (Collection{"c:\\m\\a.mp3", "c:\\m\\rock\\b.mp3", "c:\\m\\gone.mp3", "c:\\m\\rock\\gone.mp3",
                                 "c:\\m\\rock\\zero.mp3"}));
}

}  // namespace
}  // namespace qublet

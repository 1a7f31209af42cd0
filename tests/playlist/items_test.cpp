#include "playlist/items.h"

#include <gtest/gtest.h>

#include "playlist/row_filling.h"
#include "support/list_test_base.h"

namespace qublet {
namespace {

class ItemsTest : public ListTestBase {
 protected:
  // All cells of a row with "|" between.
  std::string Line(int index) {
    std::string line;
    for (const std::string& cell : Rows().At(index).cells) line += (line.empty() ? "" : "|") + cell;
    return line;
  }
  // Rows that stand in the list already, "1.mp3" and so on.
  void Stock(int count) {
    for (int i = 1; i <= count; ++i) {
      Touch({"old/" + std::to_string(i) + ".mp3"});
      ASSERT_TRUE(items_.AddFile("c:\\old\\" + std::to_string(i) + ".mp3", 0, 0));
    }
  }
  Outcome Add(const std::string& path, bool reselect, int insert_point = 0) {
    return items_.AddStuff(path, reselect, insert_point);
  }
};

using AddFile = ItemsTest;
using AddStuff = ItemsTest;

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

TEST_F(AddStuff, AddsAnAudioFileOfEachTypeInAnyCase) {
  Touch({"a.mp3", "b.WAV", "c.Ogg", "d.wMa"});
  for (const char* path : {"c:\\a.mp3", "c:\\b.WAV", "C:\\c.Ogg", "c:d.wMa"}) {
    document_.PlaylistChanged = false;
    EXPECT_TRUE(Add(path, false)) << path;
    EXPECT_TRUE(document_.PlaylistChanged) << path;
  }
  EXPECT_EQ(Paths(), (Collection{"c:\\a.mp3", "c:\\b.WAV", "c:\\c.Ogg", "c:\\d.wMa"}));
  EXPECT_EQ(Orders(), "1 2 3 4");
  EXPECT_EQ(feedback_.waits, 0);
  EXPECT_GE(feedback_.most_waits, 1);
  EXPECT_TRUE(feedback_.progress.empty());
}

TEST_F(AddStuff, IgnoresOtherTypesMissingFilesAndNothing) {
  Touch({"a.txt", "b.mp3.bak", "vqf.vqf", "noextension", "mp3", ".mp3x", "a.m3u9"});
  for (const char* path : {"c:\\a.txt", "c:\\b.mp3.bak", "c:\\vqf.vqf", "c:\\noextension", "c:\\mp3", "c:\\.mp3x",
                           "c:\\a.m3u9", "c:\\missing.mp3", "c:\\missing.m3u", "q:\\a.mp3", "", "c:\\*.mp3"}) {
    EXPECT_FALSE(Add(path, true)) << path;
  }
  EXPECT_EQ(Rows().Count(), 0);
  EXPECT_FALSE(document_.PlaylistChanged);
  EXPECT_TRUE(view_.shown.empty());
  EXPECT_EQ(feedback_.waits, 0);
}

TEST_F(AddStuff, GivesASingleFileItsRowIndexForOriginalOrder) {
  Stock(3);
  Touch({"a.mp3"});
  EXPECT_TRUE(Add("c:\\a.mp3", false, 2));
  EXPECT_EQ(Names(), "1.mp3 a.mp3 2.mp3 3.mp3");
  EXPECT_EQ(Orders(), "1 2 2 3");
}

TEST_F(AddStuff, WalksAFolderTypeByTypeThenItsSubfolders) {
  Touch({"m/4.wma", "m/3.ogg", "m/2.wav", "m/1.mp3", "m/0.MP3", "m/x.txt", "m/b/2.mp3", "m/b/1.wma", "m/a/9.ogg",
         "m/a/deep/8.mp3"});
  EXPECT_TRUE(Add("C:\\m\\", false));
  EXPECT_EQ(Paths(), (Collection{"c:\\m\\0.MP3", "c:\\m\\1.mp3", "c:\\m\\2.wav", "c:\\m\\3.ogg", "c:\\m\\4.wma",
                                 "c:\\m\\a\\9.ogg", "c:\\m\\a\\deep\\8.mp3", "c:\\m\\b\\2.mp3", "c:\\m\\b\\1.wma"}));
  EXPECT_EQ(Orders(), "1 2 3 4 5 6 7 8 9");
  EXPECT_EQ(feedback_.activities,
            (std::vector<std::string>{"c:\\m", "c:\\m\\a", "c:\\m\\a\\deep", "", "", "c:\\m\\b", "", ""}));
}

TEST_F(AddStuff, WalksAWholeDrive) {
  Touch({"a.mp3", "m/b.mp3"});
  EXPECT_TRUE(Add("C:", false));
  EXPECT_EQ(Paths(), (Collection{"c:\\a.mp3", "c:\\m\\b.mp3"}));
}

TEST_F(AddStuff, FindsNothingInAFolderWithoutAudioFiles) {
  Touch({"m/x.txt"});
  EXPECT_FALSE(Add("c:\\m", true));
  EXPECT_FALSE(document_.PlaylistChanged);
}

TEST_F(AddStuff, OpensAPlaylistAndMakesItsFolderCurrent) {
  Touch({"m/1.mp3", "m/sub/2.mp3"});
  drives_.Write("m/list.M3U", "#EXTM3U\r\nsub\\2.mp3\r\nC:\\m\\1.mp3\r\ngone.mp3\r\n");
  EXPECT_TRUE(Add("C:\\m\\list.M3U", false));
  EXPECT_EQ(Paths(), (Collection{"c:\\m\\sub\\2.mp3", "c:\\m\\1.mp3", "c:\\m\\gone.mp3"}));
  EXPECT_EQ(Orders(), "1 2 ");
  EXPECT_EQ(files_->CurrentFolder(), "c:\\m");
  EXPECT_TRUE(document_.PlaylistChanged);
}

TEST_F(AddStuff, OpensAPlaylistInTheRootOfADrive) {
  TemporaryDrives::WriteAt(drives_.D() / "list.m3u", "a.mp3\r\n");
  TemporaryDrives::WriteAt(drives_.D() / "a.mp3", "abc");
  EXPECT_TRUE(Add("d:\\list.m3u", false));
  EXPECT_EQ(Paths(), Collection{"d:\\a.mp3"});
  EXPECT_EQ(files_->CurrentFolder(), "d:\\");
}

TEST_F(AddStuff, OpensABookmarkFileAndAnM3u8Alike) {
  Touch({"m/1.mp3"});
  drives_.Write("m/cat.bm", "1.mp3\r\n");
  drives_.Write("m/list.m3u8", "1.mp3\n");
  EXPECT_TRUE(Add("c:\\m\\cat.bm", false));
  EXPECT_TRUE(Add("c:\\m\\list.m3u8", false));
  EXPECT_EQ(Paths(), (Collection{"c:\\m\\1.mp3", "c:\\m\\1.mp3"}));
  EXPECT_EQ(Orders(), "1 2");
}

TEST_F(AddStuff, DropsAPlaylistInsideAPlaylist) {
  Touch({"1.mp3", "2.mp3"});
  drives_.Write("inner.m3u", "c:\\2.mp3\r\n");
  drives_.Write("outer.m3u", "c:\\inner.m3u\r\nc:\\1.mp3\r\n");
  EXPECT_TRUE(Add("c:\\outer.m3u", false));
  EXPECT_EQ(Names(), "1.mp3");
}

TEST_F(AddStuff, AddsNothingForAPlaylistWithoutAudioLines) {
  drives_.Write("list.m3u", "#EXTM3U\r\n\r\nc:\\a.txt\r\n");
  drives_.Write("empty.m3u", "");
  EXPECT_FALSE(Add("c:\\list.m3u", true));
  EXPECT_FALSE(Add("c:\\empty.m3u", true));
  EXPECT_FALSE(document_.PlaylistChanged);
  EXPECT_TRUE(feedback_.progress.empty());
}

TEST_F(AddStuff, DoublesTheRowsOfAPlaylistOpenedTwice) {
  Touch({"1.mp3", "2.mp3"});
  drives_.Write("list.m3u", "c:\\1.mp3\r\nc:\\2.mp3\r\n");
  EXPECT_TRUE(Add("c:\\list.m3u", false));
  EXPECT_TRUE(Add("c:\\list.m3u", false));
  EXPECT_EQ(Names(), "1.mp3 2.mp3 1.mp3 2.mp3");
  EXPECT_EQ(Orders(), "1 2 3 4");
}

TEST_F(AddStuff, NumbersABatchBehindTheRowsThatWereThereWhereverItLands) {
  Stock(3);
  Touch({"m/a.mp3", "m/b.mp3"});
  EXPECT_TRUE(Add("c:\\m", false, 1));
  EXPECT_EQ(Names(), "a.mp3 b.mp3 1.mp3 2.mp3 3.mp3");
  EXPECT_EQ(Orders(), "4 5 1 2 3");
}

TEST_F(AddStuff, RewritesAnInsertPointBelowOne) {
  Stock(2);
  Touch({"a.mp3"});
  for (const int below : {0, -1}) {
    int insert_point = below;
    const int before = Rows().Count();
    EXPECT_TRUE(items_.AddStuff("c:\\a.mp3", false, insert_point));
    EXPECT_EQ(insert_point, before + 1);
    EXPECT_EQ(Rows().At(before + 1).cells[kFileName], "a.mp3");
  }
  int insert_point = 0;
  EXPECT_FALSE(items_.AddStuff("c:\\missing", false, insert_point));
  EXPECT_EQ(insert_point, 5);
  insert_point = 2;
  EXPECT_TRUE(items_.AddStuff("c:\\a.mp3", false, insert_point));
  EXPECT_EQ(insert_point, 2);
}

TEST_F(AddStuff, AddsNothingAtAnInsertPointPastTheEnd) {
  Stock(1);
  Touch({"m/a.mp3"});
  EXPECT_FALSE(Add("c:\\m\\a.mp3", true, 3));
  EXPECT_FALSE(Add("c:\\m", true, 3));
  EXPECT_EQ(Names(), "1.mp3");
  EXPECT_TRUE(Add("c:\\m", true, 2));
}

TEST_F(AddStuff, SelectsExactlyTheNewRowsWhenAsked) {
  Stock(3);
  Rows().SelectWhere([](int, const Row&) { return true; });
  Touch({"m/a.mp3", "m/b.mp3"});
  EXPECT_TRUE(Add("c:\\m", true, 1));
  EXPECT_EQ(Selection(), "xx---");
  EXPECT_EQ(Rows().FocusedRow(), 1);
  EXPECT_TRUE(Add("c:\\m\\a.mp3", true));
  EXPECT_EQ(Selection(), "-----x");
  EXPECT_EQ(Rows().FocusedRow(), 6);
}

TEST_F(AddStuff, LeavesSelectionAndFocusAloneOtherwise) {
  Stock(2);
  Rows().SetSelected(2, true);
  Rows().SetFocusedRow(2);
  view_.shown.clear();
  Touch({"m/a.mp3"});
  EXPECT_TRUE(Add("c:\\m", false, 1));
  EXPECT_EQ(Selection(), "--x");
  EXPECT_EQ(Rows().FocusedRow(), 3);
  EXPECT_TRUE(view_.shown.empty());
}

TEST_F(AddStuff, RefreshesTheWindowForTheNewSelectionUnlessDropping) {
  Touch({"a.mp3"});
  EXPECT_TRUE(Add("c:\\a.mp3", true));
  EXPECT_EQ(view_.shown.size(), 2U) << "once for the rows deselected, once for the rows selected";
  view_.shown.clear();
  {
    const RefreshOnce outer(view_);
    const RefreshOnce inner(view_);
    EXPECT_TRUE(view_.Dropping());
    EXPECT_TRUE(Add("c:\\a.mp3", true));
    EXPECT_EQ(Selection(), "-x");
    EXPECT_TRUE(view_.shown.empty()) << "who drops refreshes once, after the last name";
  }
  EXPECT_FALSE(view_.Dropping());
  EXPECT_EQ(view_.shown, std::vector<std::string>{"click"});
}

TEST_F(AddStuff, EndsWithFalseWhenTheRowOfAFileCouldNotBeFilled) {
  drives_.WriteSparse("big.mp3", TextOf(VaryingRate()), 268'435'456);
  EXPECT_FALSE(Add("c:\\big.mp3", true));
  EXPECT_EQ(Names(), "big.mp3") << "the row stays";
  EXPECT_FALSE(document_.PlaylistChanged);
  EXPECT_EQ(Selection(), "-");
  EXPECT_EQ(feedback_.waits, 0);
}

TEST_F(AddStuff, GoesOnWithABatchBehindARowThatCouldNotBeFilled) {
  Touch({"m/a.mp3", "m/c.mp3"});
  drives_.WriteSparse("m/b.mp3", TextOf(VaryingRate()), 268'435'456);
  drives_.Write("m/d.mp3", TextOf(VaryingRate(1000)));
  EXPECT_TRUE(Add("c:\\m", true));
  EXPECT_EQ(Names(), "a.mp3 b.mp3 c.mp3 d.mp3");
  EXPECT_EQ(Orders(), "1  3 ");
  EXPECT_EQ(Selection(), "xxxx");
  EXPECT_TRUE(document_.PlaylistChanged);
}

TEST_F(AddStuff, OpensAPlaylistOf32767Lines) {
  drives_.Write("list.m3u", PlaylistOfMissingFiles(32767));
  EXPECT_TRUE(Add("c:\\list.m3u", true));
  EXPECT_EQ(Rows().Count(), 32767);
  EXPECT_EQ(Rows().SelectedCount(), 32767);
  EXPECT_EQ(Rows().At(1).cells[kFileName], "00001.mp3");
  EXPECT_EQ(Rows().At(20000).cells[kFileName], "20000.mp3");
  EXPECT_EQ(Rows().At(32767).cells[kFileName], "32767.mp3");
}

TEST_F(AddStuff, EndsAPlaylistOf40000LinesAtRow32767) {
  Stock(7);
  drives_.Write("list.m3u", PlaylistOfMissingFiles(40000));
  EXPECT_TRUE(Add("c:\\list.m3u", true, 3));
  EXPECT_EQ(Rows().Count(), 32767);
  EXPECT_EQ(Rows().SelectedCount(), 32760);
  EXPECT_EQ(Rows().At(2).cells[kFileName], "2.mp3");
  EXPECT_EQ(Rows().At(3).cells[kFileName], "00001.mp3") << "the first ones, in their order";
  EXPECT_EQ(Rows().At(32762).cells[kFileName], "32760.mp3");
  EXPECT_EQ(Rows().At(32763).cells[kFileName], "3.mp3");
  ASSERT_EQ(feedback_.progress.size(), 1U);
  EXPECT_EQ(feedback_.progress[0].maximum, 40000);
  document_.PlaylistChanged = false;
  EXPECT_FALSE(Add("c:\\list.m3u", true)) << "the list is full";
  EXPECT_FALSE(Add("c:\\old\\1.mp3", true));
  EXPECT_FALSE(document_.PlaylistChanged);
  EXPECT_EQ(Rows().Count(), 32767);
}

TEST_F(AddStuff, ShowsTheProgressOfABatch) {
  drives_.Write("list.m3u", PlaylistOfMissingFiles(5000));
  EXPECT_TRUE(Add("c:\\list.m3u", false));
  ASSERT_EQ(feedback_.progress.size(), 1U);
  const RecordingFeedback::Progress& progress = feedback_.progress[0];
  EXPECT_EQ(progress.caption, "Get File Info...");
  EXPECT_EQ(progress.maximum, 5000);
  EXPECT_TRUE(progress.ended);
  EXPECT_TRUE(std::is_sorted(progress.values.begin(), progress.values.end()));
  EXPECT_GE(progress.values.front(), 0);
  EXPECT_EQ(progress.values.back(), 5000);
  EXPECT_FALSE(feedback_.foreign_thread);
  EXPECT_EQ(feedback_.waits, 0);
}

// Counts what the rows cost: how often each row's place is told.
class InsertCounter : public RowListener {
 public:
  void CountChanged(int count) override { counts.push_back(count); }
  void RowsChanged(int, int) override { ++changes; }
  void FocusMoved() override {}
  void ShowRow(int) override {}

  std::vector<int> counts;
  int changes = 0;
};

TEST_F(AddStuff, InsertsABatchInOnePieceAndSelectsItInOneStep) {
  InsertCounter counter;
  Rows().SetListener(&counter);
  drives_.Write("list.m3u", PlaylistOfMissingFiles(3000));
  EXPECT_TRUE(Add("c:\\list.m3u", true));
  EXPECT_TRUE(Add("c:\\list.m3u", true, 1));
  Rows().SetListener(nullptr);
  EXPECT_EQ(counter.counts, (std::vector<int>{3000, 6000}));
  EXPECT_LE(counter.changes, 5) << "deselected once, selected once for each batch, pushed down once";
}

using FileArray = ItemsTest;

TEST_F(FileArray, GetsAllPathsOrThoseOfTheSelectedRowsAppended) {
  Stock(3);
  items_.AddFile("c:\\gone.mp3", 0, 0);
  Rows().SelectWhere([](int index, const Row&) { return index == 2 || index == 4; });
  document_.FileArray = {"before"};
  items_.SaveFileArrayFromList(false);
  EXPECT_EQ(document_.FileArray, (Collection{"before", "c:\\old\\2.mp3", "c:\\gone.mp3"}));
  DestroyFileArray(document_);
  EXPECT_EQ(document_.FileArray, Collection{});
  items_.SaveFileArrayFromList(true);
  EXPECT_EQ(document_.FileArray, (Collection{"c:\\old\\1.mp3", "c:\\old\\2.mp3", "c:\\old\\3.mp3", "c:\\gone.mp3"}));
  items_.SaveFileArrayFromList(true);
  EXPECT_EQ(document_.FileArray.size(), 8U);
  EXPECT_EQ(feedback_.waits, 0);
  EXPECT_EQ(feedback_.most_waits, 1);
}

TEST_F(FileArray, IsLoadedInItsOrderBeforeARow) {
  Stock(2);
  Touch({"a.mp3", "b.mp3", "c.mp3"});
  document_.FileArray = {"c:\\c.mp3", "c:\\a.mp3", "c:\\b.mp3"};
  items_.LoadFileArrayToList(2);
  EXPECT_EQ(Names(), "1.mp3 c.mp3 a.mp3 b.mp3 2.mp3");
  EXPECT_EQ(Orders(), "1 3 4 5 2");
  EXPECT_FALSE(document_.PlaylistChanged);
  EXPECT_EQ(document_.FileArray.size(), 3U);
}

TEST_F(FileArray, IsReversedAtTheEndWithoutAnInsertPoint) {
  Stock(1);
  Touch({"a.mp3", "b.mp3", "c.mp3"});
  document_.FileArray = {"c:\\a.mp3", "c:\\b.mp3", "c:\\c.mp3"};
  items_.LoadFileArrayToList(0);
  EXPECT_EQ(Names(), "1.mp3 c.mp3 b.mp3 a.mp3");
  EXPECT_EQ(Orders(), "1 4 3 2");
}

TEST_F(FileArray, LoadsNothingFromNothing) {
  items_.LoadFileArrayToList(1);
  EXPECT_EQ(Rows().Count(), 0);
  ASSERT_EQ(feedback_.progress.size(), 1U);
  EXPECT_EQ(feedback_.progress[0].maximum, 0);
  EXPECT_TRUE(feedback_.progress[0].ended);
}

using Refresh = ItemsTest;

TEST_F(Refresh, ReadsEveryRowAgainAndTakesTheOrderAsItStands) {
  Stock(3);
  drives_.Write("old/2.mp3", TextOf(Frames(100)));
  std::filesystem::remove(drives_.C() / "old/1.mp3");
  Rows().SwapRows(1, 3);
  Rows().SetIcon(2, RowIcon::kRed);
  Rows().SetSelected(2, true);
  items_.MViewRefresh_Click();
  EXPECT_EQ(Names(), "3.mp3 2.mp3 1.mp3");
  EXPECT_EQ(Orders(), "1 2 ");
  EXPECT_EQ(Rows().At(2).cells[kBitrate], "128 Kbit");
  EXPECT_EQ(Rows().At(2).icon, RowIcon::kNormal);
  EXPECT_EQ(Rows().At(3).icon, RowIcon::kMissing);
  EXPECT_EQ(Selection(), "---");
  EXPECT_FALSE(document_.PlaylistChanged);
  EXPECT_EQ(view_.shown, std::vector<std::string>{"click"});

  Touch({"old/1.mp3"});
  items_.MViewRefresh_Click();
  EXPECT_EQ(Rows().At(3).icon, RowIcon::kNormal);
  EXPECT_FALSE(Rows().At(3).ghosted);
}

TEST_F(Refresh, DoesNothingToAnEmptyList) {
  items_.MViewRefresh_Click();
  EXPECT_TRUE(feedback_.progress.empty());
  EXPECT_TRUE(view_.shown.empty());
}

TEST_F(ItemsTest, SelectNoneDeselectsAllAndRefreshesTheWindow) {
  Stock(2);
  Rows().SelectWhere([](int, const Row&) { return true; });
  items_.MEditSelNone_Click();
  EXPECT_EQ(Selection(), "--");
  EXPECT_EQ(view_.shown, std::vector<std::string>{"click"});
  EXPECT_EQ(feedback_.waits, 0);
}

}  // namespace
}  // namespace qublet

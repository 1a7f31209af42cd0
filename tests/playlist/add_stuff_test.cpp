#include <algorithm>

#include "playlist/items_test_base.h"

namespace qublet {
namespace {

using AddStuff = ItemsTest;

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

}  // namespace
}  // namespace qublet

#include "playlist/statistics.h"

#include <map>

#include "support/counted_listings.h"
#include "support/fake_player.h"
#include "support/huge_files.h"
#include "support/list_test_base.h"

namespace qublet {
namespace {

class StatisticsTest : public ListTestBase {
 protected:
  // A row as it would stand in the list; without a size the file is missing.
  void Add(const std::string& folder, const std::string& name, const std::string& length, int size = -1) {
    std::vector<Row> row(1);
    row[0].cells[kPath] = folder;
    row[0].cells[kFileName] = name;
    row[0].cells[kHiddenLen] = length;
    if (size >= 0) {
      TemporaryDrives::WriteAt(files_->ToNative(folder + name), std::string(static_cast<std::size_t>(size), 'x'));
    }
    Rows().Insert(Rows().Count() + 1, std::move(row));
  }

  Statistics Gather() { return GatherStatistics(document_, *files_, associations_, "c:\\program"); }

  // The shown texts by their labels.
  std::map<std::string, std::string> Texts() {
    std::map<std::string, std::string> texts;
    for (const StatisticsLine& line : StatisticsLines(Gather(), ",")) texts[line.control] = line.text;
    return texts;
  }

  FakeAssociations& associations_ = fakes_.associations;
};

TEST_F(StatisticsTest, CountItemsFoldersSizesAndTimes) {
  Add("c:\\m\\a\\", "1.mp3", "60", 1000);
  Add("c:\\m\\a\\", "2.mp3", "61", 2000);
  Add("c:\\m\\b\\", "3.mp3", "3600", 3000001);
  const Statistics found = Gather();
  EXPECT_EQ(found.FileCount, 3);
  EXPECT_EQ(found.FolderCount, 2);
  EXPECT_EQ(found.ListFileSize, 42);
  EXPECT_EQ(found.TotalSize, 3003001);
  EXPECT_EQ(found.MissingCount, 0);
  EXPECT_EQ(found.TotalTime, 3721);
  EXPECT_EQ(found.RelativeFolder, "c:\\m\\");
  EXPECT_EQ(found.AverageTime, 1240);
  EXPECT_DOUBLE_EQ(found.AverageSize, 3003001 / 3.0);
  EXPECT_EQ(found.SizePrefix, "");
  EXPECT_EQ(found.TimePrefix, "");
}

TEST_F(StatisticsTest, EndASumOfHugeSizesAtTheLargestNumber) {
  Add("c:\\m\\", "1.mp3", "60", 1);
  Add("c:\\m\\", "2.mp3", "60", 1);
  const HugeFiles huge(*files_);
  const Statistics found = GatherStatistics(document_, huge, associations_, "c:\\program");
  std::map<std::string, std::string> texts;
  for (const StatisticsLine& line : StatisticsLines(found, ",")) texts[line.control] = line.text;
  EXPECT_EQ(texts["lblTotalsize"], "9,223,372,036,854,775,807 bytes");
  EXPECT_EQ(texts["lblAvtracksize"], "8,796,093,022,208 Mb");
}

TEST_F(StatisticsTest, AreShownInTheirWords) {
  associations_.program.path = "c:\\player\\play.exe";
  document_.CurrentPlaylist = "c:\\m\\list.m3u";
  Add("c:\\m\\a\\", "1.mp3", "60", 1000);
  Add("c:\\m\\b\\", "3.mp3", "3661", 3000001);
  EXPECT_EQ(Texts(), (std::map<std::string, std::string>{{"lblplaylistfilename", "list.m3u"},
                                                         {"lblPlaylistsize", "28 bytes"},
                                                         {"lblRelativeFolder", "c:\\m\\"},
                                                         {"lblOpenwith", "play.exe"},
                                                         {"lblFilecount", "2 items"},
                                                         {"lblFoldercount", "2 folders"},
                                                         {"lblTotalsize", "3,001,001 bytes"},
                                                         {"lblMissingItems", "None"},
                                                         {"lblTotaltime", "1:02:01 [hms]"},
                                                         {"lblAvtracklength", "31:00 [hms]"},
                                                         {"lblAvtracksize", "1,465 Kb"}}));
  EXPECT_EQ(associations_.asked.back(), "c:\\program\\last.m3u");
}

TEST_F(StatisticsTest, HaveTheirCaptionsInOrder) {
  std::vector<std::string> captions;
  for (const StatisticsLine& line : StatisticsLines({}, ",")) captions.emplace_back(line.caption);
  EXPECT_EQ(captions,
            (std::vector<std::string>{"Playlist filename:", "Size on disk:", "Relative Folder:", "Opens with:",
                                      "File count:", "Folders pointed to:", "Total size of items:", "Files missing:",
                                      "Playing time:", "Av. track length:", "Av. track size:"}));
}

TEST_F(StatisticsTest, SayOneInTheSingular) {
  Add("c:\\", "1.mp3", "60");
  EXPECT_EQ(Texts()["lblFilecount"], "1 item");
  EXPECT_EQ(Texts()["lblFoldercount"], "1 folder");
  EXPECT_EQ(Texts()["lblMissingItems"], "1 item");
  Add("c:\\", "2.mp3", "60");
  EXPECT_EQ(Texts()["lblMissingItems"], "2 items");
}

TEST_F(StatisticsTest, NameAListWithoutAFile) {
  Add("c:\\", "1.mp3", "60", 1);
  EXPECT_EQ(Gather().ListFileName, "'Unsaved Playlist'");
  EXPECT_EQ(Gather().OpensWith, "");
}

TEST_F(StatisticsTest, FindNoFolderForItemsOnTwoDrives) {
  Add("c:\\m\\", "1.mp3", "60", 1);
  Add("d:\\m\\", "1.mp3", "60", 1);
  EXPECT_EQ(Gather().RelativeFolder, "'Not found...'");
}

TEST_F(StatisticsTest, CountFoldersAsTheyCome) {
  Add("c:\\a\\", "1.mp3", "1", 1);
  Add("c:\\b\\", "1.mp3", "1", 1);
  Add("c:\\a\\", "2.mp3", "1", 1);
  EXPECT_EQ(Gather().FolderCount, 3);
}

TEST_F(StatisticsTest, MarkSizesWhenAnItemIsMissing) {
  Add("c:\\", "gone.mp3", "60");
  Add("c:\\", "here.mp3", "60", 2000);
  const Statistics found = Gather();
  EXPECT_EQ(found.MissingCount, 1);
  EXPECT_EQ(found.SizePrefix, ">");
  EXPECT_EQ(found.TimePrefix, "");
  EXPECT_EQ(found.AverageTime, 120) << "by the files that are there";
  EXPECT_EQ(Texts()["lblTotalsize"], ">2,000 bytes");
  EXPECT_EQ(Texts()["lblAvtracksize"], ">2,000 Bytes");
  EXPECT_EQ(Texts()["lblTotaltime"], "2:00 [hms]");
  EXPECT_EQ(StatisticsNote(found), "' > ' sign indicates 'More than'..");
}

TEST_F(StatisticsTest, MarkTimesWhenALengthIsNotKnown) {
  Add("c:\\", "1.mp3", "0", 10);
  Add("c:\\", "2.mp3", "", 10);
  Add("c:\\", "3.mp3", "90.9", 10);
  const Statistics found = Gather();
  EXPECT_EQ(found.TotalTime, 90) << "whole parts are summed";
  EXPECT_EQ(found.TimePrefix, ">");
  EXPECT_EQ(found.SizePrefix, "");
  EXPECT_EQ(Texts()["lblTotaltime"], ">1:30 [hms]");
  EXPECT_EQ(Texts()["lblAvtracklength"], ">0:30 [hms]");
  EXPECT_EQ(StatisticsNote(found), "' > ' sign indicates 'More than'..");
}

TEST_F(StatisticsTest, HaveNoNoteWhenAllIsKnown) {
  Add("c:\\", "1.mp3", "5", 10);
  EXPECT_EQ(StatisticsNote(Gather()), "");
}

TEST_F(StatisticsTest, LeaveSumsUnknownWhenEveryItemIsMissing) {
  Add("c:\\m\\", "gone.mp3", "0");
  Add("c:\\m\\", "gone too.mp3", "");
  EXPECT_EQ(Texts()["lblFilecount"], "2 items");
  EXPECT_EQ(Texts()["lblMissingItems"], "2 items");
  for (const char* label : {"lblTotalsize", "lblTotaltime", "lblAvtracklength", "lblAvtracksize"})
    EXPECT_EQ(Texts()[label], "????") << label;
}

TEST_F(StatisticsTest, GiveTheSizeOfThePlaylistInBytes) {
  Add("c:\\", "123.mp3", "1", 1);
  Add("c:\\", "456.mp3", "1", 1);
  EXPECT_EQ(Gather().ListFileSize, 24) << "two lines of 10 characters";
  Rows().Clear();
  Add("c:\\", "\u00E9\u00E9\u00E9.mp3", "1", 1);
  EXPECT_EQ(Gather().ListFileSize, 12) << "one byte a letter in the code page";
  Add("c:\\", "\u0414.mp3", "1", 1);
  EXPECT_EQ(Gather().ListFileSize, 15 + 11) << "UTF-8 where the code page doesn't do";
}

TEST_F(StatisticsTest, ReadSizesFromTheDiskNotFromTheList) {
  Add("c:\\", "1.mp3", "1", 500);
  Rows().SetCell(1, kHiddenSize, "7");
  EXPECT_EQ(Gather().TotalSize, 500);
}

TEST_F(StatisticsTest, KeepWhatFitsWhenTimesOverflow) {
  Add("c:\\", "1.mp3", "2147483647", 1);
  Add("c:\\", "2.mp3", "1", 1);
  Add("c:\\", "3.mp3", "1e300", 1);
  EXPECT_EQ(Gather().TotalTime, 2147483647);
}

TEST_F(StatisticsTest, ListAFolderOnceForAllRowsThatArePatterns) {
  Add("c:\\m\\", "1.mp3", "60", 1000);
  for (int i = 1; i <= 10; ++i) Add("c:\\m\\", "?" + std::to_string(i) + ".mp3", "60");
  Add("c:\\m\\", "?.mp3", "60");
  const CountedListings counted(*files_);
  EXPECT_EQ(GatherStatistics(document_, counted, associations_, "c:\\program").MissingCount, 10);
  EXPECT_EQ(counted.OfAll(), 1);
}

TEST_F(StatisticsTest, AddUpALongList) {
  std::vector<Row> rows(32767);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    rows[i].cells[kPath] = i % 2 == 0 ? "c:\\a\\" : "c:\\b\\";
    rows[i].cells[kFileName] = "gone.mp3";
    rows[i].cells[kHiddenLen] = "10";
  }
  Rows().Insert(1, std::move(rows));
  const Statistics found = Gather();
  EXPECT_EQ(found.FileCount, 32767);
  EXPECT_EQ(found.FolderCount, 32767);
  EXPECT_EQ(found.MissingCount, 32767);
  EXPECT_EQ(found.TotalTime, 327670);
}

}  // namespace
}  // namespace qublet

#include "generators/autocreate/autocreate_plan.h"

#include <gtest/gtest.h>

#include <ctime>

#include "support/stopped_clock.h"
#include "support/temporary_drives.h"

namespace qublet {
namespace {

using Mode = AutoCreateMode;

// What would be written, a playlist a line: "TARGET: line, line".
std::string Written(const AutoCreateOrder& order, const std::string& Root) {
  const NamesByFolder names(order.FileArray);
  std::string text;
  for (const PlannedFolder& folder : PlanPlaylists(order, Root, StoppedClock()).folders) {
    for (const PlannedPlaylist& playlist : folder.playlists) {
      text += playlist.target + ":";
      for (const std::string& line : LinesOf(playlist, names.In(folder.path))) text += " " + line;
      text += "\n";
    }
  }
  return text;
}

AutoCreateOrder OrderOf(Mode mode, const std::string& format = "%1-%2") {
  AutoCreateOrder order;
  order.FileArray = {"d:\\m\\a\\x\\1.mp3", "d:\\m\\0.mp3", "d:\\m\\b\\x\\3.mp3", "d:\\m\\a\\x\\2.mp3"};
  order.Paths = {"d:\\m\\a\\x\\", "d:\\m\\", "d:\\m\\b\\x\\"};
  order.mode = mode;
  order.MyFolder = "c:\\lists\\";
  order.Parameters = format;
  return order;
}

Collection Planned(const AutoCreateOrder& order) {
  return PlanPlaylists(order, "d:\\m", StoppedClock()).Planned;
}

TEST(AutoCreatePlan, PutsBareNamesIntoEachFolder) {
  const AutoCreateOrder order = OrderOf(Mode::kBaseFolderOnly);
  EXPECT_EQ(Written(order, "d:\\m"),
            "d:\\m\\a\\x\\x-a.m3u: 1.mp3 2.mp3\n"
            "d:\\m\\m-d.m3u: 0.mp3\n"
            "d:\\m\\b\\x\\x-b.m3u: 3.mp3\n");
  EXPECT_EQ(Planned(order), (Collection{"d:\\m\\a\\x\\x-a.m3u", "d:\\m\\m-d.m3u", "d:\\m\\b\\x\\x-b.m3u"}));
}

TEST(AutoCreatePlan, PutsNamesRelativeToTheRootIntoTheRoot) {
  const AutoCreateOrder order = OrderOf(Mode::kRootFolderOnly);
  EXPECT_EQ(Written(order, "d:\\m"),
            "d:\\m\\x-a.m3u: a\\x\\1.mp3 a\\x\\2.mp3\n"
            "d:\\m\\m-d.m3u: 0.mp3\n"
            "d:\\m\\x-b.m3u: b\\x\\3.mp3\n");
  EXPECT_EQ(Planned(order), (Collection{"d:\\m\\x-a.m3u", "d:\\m\\m-d.m3u", "d:\\m\\x-b.m3u"}));
}

TEST(AutoCreatePlan, PutsBothAndEachItemTwiceIntoTheRoot) {
  const AutoCreateOrder order = OrderOf(Mode::kBothFolders);
  EXPECT_EQ(Written(order, "d:\\m"),
            "d:\\m\\a\\x\\x-a.m3u: 1.mp3 2.mp3\n"
            "d:\\m\\x-a.m3u: a\\x\\1.mp3 a\\x\\2.mp3 a\\x\\1.mp3 a\\x\\2.mp3\n"
            "d:\\m\\m-d.m3u: 0.mp3\n"
            "d:\\m\\b\\x\\x-b.m3u: 3.mp3\n"
            "d:\\m\\x-b.m3u: b\\x\\3.mp3 b\\x\\3.mp3\n");
  EXPECT_EQ(Planned(order), (Collection{"d:\\m\\a\\x\\x-a.m3u", "d:\\m\\x-a.m3u", "d:\\m\\m-d.m3u",
                                        "d:\\m\\b\\x\\x-b.m3u", "d:\\m\\x-b.m3u"}));
}

TEST(AutoCreatePlan, PutsFullPathsIntoAFolderOfTheUsers) {
  const AutoCreateOrder order = OrderOf(Mode::kMyFolderOnly);
  EXPECT_EQ(Written(order, ""),
            "c:\\lists\\x-a.m3u: d:\\m\\a\\x\\1.mp3 d:\\m\\a\\x\\2.mp3\n"
            "c:\\lists\\m-d.m3u: d:\\m\\0.mp3\n"
            "c:\\lists\\x-b.m3u: d:\\m\\b\\x\\3.mp3\n");
}

TEST(AutoCreatePlan, AnnouncesTheRootOnceWhereItIsListedTwiceAndWritesItTwice) {
  AutoCreateOrder order = OrderOf(Mode::kRootFolderOnly);
  order.Paths = {"d:\\m\\", "d:\\m\\a\\x\\", "d:\\m\\"};
  EXPECT_EQ(Planned(order), (Collection{"d:\\m\\m-d.m3u", "d:\\m\\x-a.m3u"}));
  EXPECT_EQ(Written(order, "d:\\m"),
            "d:\\m\\m-d.m3u: 0.mp3\n"
            "d:\\m\\x-a.m3u: a\\x\\1.mp3 a\\x\\2.mp3\n"
            "d:\\m\\m-d.m3u: 0.mp3\n");
}

TEST(AutoCreatePlan, AnnouncesAFolderOfItsOwnAsOftenAsItIsListed) {
  for (const Mode mode : {Mode::kBaseFolderOnly, Mode::kBothFolders}) {
    AutoCreateOrder order = OrderOf(mode);
    order.Paths = {"d:\\m\\", "d:\\m\\"};
    EXPECT_EQ(Planned(order), (Collection{"d:\\m\\m-d.m3u", "d:\\m\\m-d.m3u"}));
  }
}

TEST(AutoCreatePlan, TakesTheRootOutOfAFolderWhereverItStands) {
  AutoCreateOrder order = OrderOf(Mode::kRootFolderOnly, "%1");
  order.FileArray = {"c:\\music\\rock\\1.mp3", "c:\\other\\rock\\music\\2.mp3"};
  order.Paths = {"c:\\music\\rock\\", "c:\\other\\rock\\music\\"};
  EXPECT_EQ(Written(order, "c:\\music\\rock"),
            "c:\\music\\rock\\rock.m3u: 1.mp3\n"
            "c:\\music\\rock\\music.m3u: c:\\other\\rock\\music\\2.mp3\n");
  EXPECT_EQ(Written(order, "c:"), "c:\\rock.m3u: music\\rock\\1.mp3\nc:\\music.m3u: other\\rock\\music\\2.mp3\n");
}

TEST(AutoCreatePlan, NamesTheFolderItselfWhereTheFormatGivesNoName) {
  AutoCreateOrder order = OrderOf(Mode::kBaseFolderOnly, "%9");
  order.Paths.resize(1);
  EXPECT_EQ(Planned(order), Collection{"d:\\m\\a\\x\\"});
}

TEST(AutoCreatePlan, TakesDateAndTimeFromTheClock) {
  AutoCreateOrder order = OrderOf(Mode::kMyFolderOnly, "%1 %DATE %TIME");
  order.Paths.resize(1);
  EXPECT_EQ(Planned(order), Collection{"c:\\lists\\x 03-09-2004 07-05-01.m3u"});
  order.Parameters = "";
  EXPECT_EQ(Planned(order), Collection{"c:\\lists\\-x-a-m-d------.m3u"});
}

TEST(AutoCreatePlan, GivesNoLinesOfAFolderWithoutItems) {
  EXPECT_EQ(NamesByFolder({"c:\\a\\1.mp3"}).In("c:\\b\\"), Collection());
  EXPECT_EQ(NamesByFolder({"c:\\a\\1.mp3", "c:\\b\\2.mp3", "c:\\a\\3.mp3"}).In("c:\\a\\"),
            (Collection{"1.mp3", "3.mp3"}));
}

// Folders times rows would be a milliard comparisons: minutes of work, not of waiting.
TEST(AutoCreatePlan, IsLinearInTheList) {
  constexpr int kRows = 32767;
  AutoCreateOrder order = OrderOf(Mode::kBothFolders, "%1");
  order.FileArray.clear();
  order.Paths.clear();
  for (int i = 0; i < kRows; ++i) {
    const std::string folder = "c:\\m\\" + std::to_string(i) + "\\";
    order.FileArray.push_back(folder + "a.mp3");
    order.Paths.push_back(folder);
  }
  const std::clock_t start = std::clock();
  const std::string text = Written(order, "c:\\m");
  EXPECT_LT(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC, 20);
  EXPECT_TRUE(text.ends_with("c:\\m\\32766.m3u: 32766\\a.mp3 32766\\a.mp3\n"));
}

TEST(FoldersThatExistTest, LeavesOutWhatHasGone) {
  const TemporaryDrives drives;
  drives.Write("a/x", "");
  drives.Write("b", "no folder");
  const auto files = OpenFileSystem();
  EXPECT_EQ(FoldersThatExist(*files, {"c:\\a\\1.mp3", "c:\\a\\2.mp3", "c:\\b\\1.mp3", "c:\\gone\\1.mp3",
                                      "c:\\a\\3.mp3", "c:\\1.mp3"}),
            (Collection{"c:\\a\\", "c:\\a\\", "c:\\"}));
  EXPECT_EQ(FoldersThatExist(*files, {}), Collection());
}

}  // namespace
}  // namespace qublet

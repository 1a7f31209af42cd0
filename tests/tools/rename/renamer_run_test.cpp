#include <gtest/gtest.h>

#include "platform/forwarding_file_system.h"
#include "support/ordinary_user.h"
#include "support/renamer_run_test_base.h"

namespace qublet {
namespace {

constexpr const char* kWarning =
    "Warning, you are about to RENAME ALL FILTERABLE SELECTED mp3 files, If two filenames match after filtering only "
    "the first in the list will be renamed. It is also recommended that you remove duplicate items and evaluate the "
    "result of filename length limiting before processing. Do you want to continue the process?";

class RowNotices : public RowListener {
 public:
  void CountChanged(int /*count*/) override { ++count; }
  void RowsChanged(int first, int last) override {
    ++count;
    range = {first, last};
  }
  void FocusMoved() override { ++count; }
  void ShowRow(int /*index*/) override { ++count; }

  int count = 0;
  std::pair<int, int> range;
};

class RenamerRunTest : public RenamerRunTestBase {};

TEST_F(RenamerRunTest, RenamesNoFolderThatAPlaylistNames) {
  AddSongs({"a_b.mp3", "c_d.mp3"});
  std::filesystem::remove(drives_.C() / "c_d.mp3");
  drives_.Write("c_d.mp3/x.txt", "mine");
  Run();
  EXPECT_EQ(FilesOfC(), "A B.mp3|c_d.mp3/x.txt");
  EXPECT_EQ(renamer_.view.report, "Done: 1/2 Items were Processed");
}

TEST_F(RenamerRunTest, ActivationTellsHowManyAreSelected) {
  AddSongs({"a.mp3", "b.mp3", "c.mp3"});
  Select("x-x");
  renamer_.Activate();
  EXPECT_EQ(renamer_.view.report, "2 Items Selected.");
  EXPECT_TRUE(renamer_.view.process);
  EXPECT_FALSE(renamer_.view.undo);
  EXPECT_EQ(engine_.document.FileArray, (Collection{"c:\\a.mp3", "c:\\c.mp3"}));
  Select("---");
  renamer_.Activate();
  EXPECT_EQ(renamer_.view.report, "Nothing Selected...");
  EXPECT_FALSE(renamer_.view.process);
  EXPECT_TRUE(engine_.document.FileArray.empty());
}

TEST_F(RenamerRunTest, AsksOnceBeforeItRenames) {
  AddSongs({"a_song.mp3"});
  RunAsking();
  ASSERT_EQ(Asked().size(), 1u);
  EXPECT_EQ(Asked()[0].text, kWarning);
  EXPECT_EQ(Asked()[0].buttons, MessageButtons::kYesNo);
  EXPECT_EQ(FilesOfC(), "a_song.mp3");
  EXPECT_FALSE(renamer_.view.warning);
  EXPECT_TRUE(reports_.empty());
  Run();
  EXPECT_EQ(FilesOfC(), "A Song.mp3");
  EXPECT_TRUE(renamer_.view.warning);
  renamer_.CmdProcess_Click({});
  EXPECT_EQ(Asked().size(), 2u);
  renamer_.Warning_Click(false);
  renamer_.CmdProcess_Click({});
  EXPECT_EQ(Asked().size(), 3u);
}

TEST_F(RenamerRunTest, RenamesTheSelectedFilesAndTheirRows) {
  AddSongs({"a_song.MP3", "b_song.mp3", "Mix\\c_song.mp3"});
  Select("x-x");
  Run();
  EXPECT_EQ(RowNames(), "A Song.mp3|b_song.mp3|C Song.mp3");
  EXPECT_EQ(Rows().At(3).cells[kPath], "c:\\Mix\\");
  EXPECT_EQ(FilesOfC(), "A Song.mp3|Mix/C Song.mp3|b_song.mp3");
  EXPECT_EQ(drives_.Read("Mix/C Song.mp3"), "Mix\\c_song.mp3");
  EXPECT_TRUE(engine_.document.PlaylistChanged);
  EXPECT_EQ(Selection(), "x-x");
}

TEST_F(RenamerRunTest, TellsEachStep) {
  AddSongs({"a_song.mp3", "b_song.mp3", "Other.mp3"});
  Select("x-x");
  Run();
  EXPECT_EQ(reports_,
            (std::vector<std::string>{"Building List of Selected Items... +", "Searching for Missing Items... +",
                                      "Looking for Multiple Folders... +", "Destroying Old Undo File Items...",
                                      "Renaming Items...", "Done: 1/2 Items were Processed"}));
  EXPECT_EQ(progress_, (std::vector<std::string>{"1/3", "1/3", "2/3", "0/1"}));
  EXPECT_EQ(feedback_.most_waits, 1);
  EXPECT_EQ(feedback_.waits, 0);
}

TEST_F(RenamerRunTest, EndsWhenNothingIsSelectedAnyMore) {
  AddSongs({"a_song.mp3"});
  renamer_.Activate();
  Select("-");
  fakes_.dialogs.answers = {MessageAnswer::kYes};
  renamer_.CmdProcess_Click({});
  EXPECT_EQ(renamer_.view.report, "Nothing Selected...");
  EXPECT_EQ(FilesOfC(), "a_song.mp3");
}

TEST_F(RenamerRunTest, AsksAboutMissingFiles) {
  AddSongs({"a_song.mp3", "b_song.mp3"});
  std::filesystem::remove(drives_.C() / "b_song.mp3");
  for (const MessageAnswer answer : {MessageAnswer::kNo, MessageAnswer::kCancel}) {
    fakes_.dialogs.answers = {MessageAnswer::kYes, answer};
    renamer_.Warning_Click(false);
    RunAsking();
    EXPECT_EQ(Asked().back().text,
              "Not all of the items you selected are pointed to correctly. Do you want to proceed? [This could cause "
              "inconsistency in the resultant filenames!]");
    EXPECT_EQ(Asked().back().buttons, MessageButtons::kYesNoCancel);
    EXPECT_EQ(renamer_.view.report, "Use 'Remove Non-Existent Items' to Purge Missing Files...");
    EXPECT_EQ(FilesOfC(), "a_song.mp3");
    EXPECT_TRUE(renamer_.view.process);
  }
  fakes_.dialogs.answers = {MessageAnswer::kYes};
  RunAsking();
  EXPECT_EQ(FilesOfC(), "A Song.mp3");
  EXPECT_EQ(RowNames(), "A Song.mp3|b_song.mp3");
  EXPECT_EQ(renamer_.view.report, "Done: 1/2 Items were Processed");
}

TEST_F(RenamerRunTest, AsksAboutSeveralFoldersOnlyWhenItNumbers) {
  AddSongs({"1\\a_b.mp3", "2\\c_d.mp3"});
  Run();
  EXPECT_EQ(Asked().size(), 1u);
  renamer_.Option_Click(&RenameConfig::Increment, true);
  RunAsking();
  ASSERT_EQ(Asked().size(), 2u);
  EXPECT_EQ(
      Asked()[1].text,
      "You have chosen to add incremental numbers to each item to be renamed, yet the items selected exist in "
      "different folders! Do you want to 'Reset' the count for each individual folder? Clicking 'No' will simply "
      "increment the number for every item renamed.");
  EXPECT_EQ(Asked()[1].buttons, MessageButtons::kYesNoCancel);
  EXPECT_EQ(renamer_.view.report, "Select ALL files from a single folder to be sure...");
  EXPECT_EQ(FilesOfC(), "1/A B.mp3|2/C D.mp3");
}

TEST_F(RenamerRunTest, AsksNothingMoreForOneFolder) {
  AddSongs({"a.mp3", "b.mp3"});
  Number();
  Run();
  EXPECT_EQ(Asked().size(), 1u);
  EXPECT_EQ(FilesOfC(), "1 - a.mp3|2 - b.mp3");
}

TEST_F(RenamerRunTest, RestartsTheCountInEachFolder) {
  AddSongs({"1\\a.mp3", "2\\c.mp3", "1\\b.mp3"});
  for (int i = 0; i < 9; ++i) drives_.Write("1/more" + std::to_string(i) + ".MP3", "");
  drives_.Write("1/.hidden.mp3", "");
  drives_.Write("1/text.txt", "");
  for (const char* name : {"w.wav", "o.ogg", "a.wma"}) drives_.Write(std::string("2/") + name, "");
  std::filesystem::create_directory(drives_.C() / "2" / "folder.mp3");
  Number();
  fakes_.dialogs.answers = {MessageAnswer::kYes, MessageAnswer::kYes};
  RunAsking();
  EXPECT_EQ(RowNames(), "01 - a.mp3|1 - c.mp3|02 - b.mp3") << "11 audio files in the first folder, 4 in the second";
}

TEST_F(RenamerRunTest, TakesTheWidthOfNumbersFromTheFolder) {
  for (int i = 0; i < 117; ++i) drives_.Write("more" + std::to_string(i) + ".mp3", "");
  AddSongs({"a.mp3", "b.mp3", "c.mp3"});
  Number();
  Run();
  EXPECT_EQ(RowNames(), "001 - a.mp3|002 - b.mp3|003 - c.mp3");
}

TEST_F(RenamerRunTest, CountsThroughAllFoldersWhenToldSo) {
  std::vector<std::string> names;
  for (int i = 0; i < 10; ++i)
    names.push_back(std::to_string(i % 2) + "\\" + std::string(1, static_cast<char>('a' + i)) + ".mp3");
  AddSongs(names);
  Select("xxxxxxxxx-");
  Number();
  fakes_.dialogs.answers = {MessageAnswer::kYes, MessageAnswer::kNo};
  RunAsking();
  EXPECT_EQ(RowNames(),
            "1 - a.mp3|2 - b.mp3|3 - c.mp3|4 - d.mp3|5 - e.mp3|6 - f.mp3|7 - g.mp3|8 - h.mp3|9 - i.mp3|j.mp3");
}

TEST_F(RenamerRunTest, CountsTheSelectedRowsOnly) {
  AddSongs({"a.mp3", "b.mp3", "c.mp3"});
  Select("x-x");
  Number();
  Run();
  EXPECT_EQ(RowNames(), "1 - a.mp3|b.mp3|2 - c.mp3");
}

TEST_F(RenamerRunTest, RenamesTheFirstOfTwoFilesThatComeToOneName) {
  AddSongs({"a_b.mp3", "other_one.mp3", "a-b.mp3"});
  Select("x-x");
  renamer_.RemoveRule_Click(0);
  renamer_.AddRule_Click("-", "_");
  renamer_.AddRule_Click("_", " ");
  Run();
  EXPECT_EQ(RowNames(), "A B.mp3|other_one.mp3|a-b.mp3");
  EXPECT_EQ(renamer_.view.report, "Done: 1/2 Items were Processed");
  EXPECT_EQ(drives_.Read("a-b.mp3"), "a-b.mp3");
  EXPECT_EQ(drives_.Read("A B.mp3"), "a_b.mp3");
}

TEST_F(RenamerRunTest, RowsAreHeardOfOnce) {
  AddSongs({"a_1.mp3", "a_2.mp3", "a_3.mp3"});
  Select("-xx");
  RowNotices notices;
  Rows().SetListener(&notices);
  Run();
  EXPECT_EQ(notices.count, 1);
  EXPECT_EQ(notices.range, (std::pair{2, 3}));
  Undo();
  EXPECT_EQ(notices.count, 2);
  Rows().SetListener(nullptr);
}

TEST_F(RenamerRunTest, OneRunIsAllowedUntilItIsUndone) {
  AddSongs({"a_song.mp3"});
  Run();
  EXPECT_FALSE(renamer_.view.process);
  EXPECT_TRUE(renamer_.view.undo);
  EXPECT_FALSE(renamer_.view.timer);
  Undo();
  EXPECT_FALSE(renamer_.view.process);
  EXPECT_FALSE(renamer_.view.undo);
  EXPECT_TRUE(renamer_.view.timer);
  renamer_.Timer1_Timer();
  EXPECT_TRUE(renamer_.view.process);
  EXPECT_FALSE(renamer_.view.timer);
}

TEST_F(RenamerRunTest, AnotherRunIsAllowedAfterAWhile) {
  AddSongs({"a_song.mp3"});
  renamer_.AllowOnce_Click(false);
  Run();
  EXPECT_FALSE(renamer_.view.process);
  EXPECT_TRUE(renamer_.view.timer);
  EXPECT_EQ(renamer_.TimerInterval(), 4000);
  renamer_.Delay_Click(false);
  EXPECT_EQ(renamer_.TimerInterval(), 10);
  renamer_.Delay_Click(true);
  EXPECT_EQ(renamer_.TimerInterval(), 4000);
  renamer_.Timer1_Timer();
  EXPECT_TRUE(renamer_.view.process);
  renamer_.AllowOnce_Click(true);
  EXPECT_FALSE(renamer_.view.process) << "a run can be undone";
  EXPECT_FALSE(renamer_.view.timer);
  renamer_.AllowOnce_Click(false);
  EXPECT_TRUE(renamer_.view.timer);
}

TEST_F(RenamerRunTest, TheGuardLeavesAnEnabledButtonWithoutAnUndo) {
  AddSongs({"Song.mp3"});
  renamer_.Activate();
  renamer_.AllowOnce_Click(false);
  EXPECT_FALSE(renamer_.view.timer);
  renamer_.AllowOnce_Click(true);
  EXPECT_TRUE(renamer_.view.process);
}

TEST_F(RenamerRunTest, AnActivationLooksAtTheSelectionAlone) {
  AddSongs({"a_song.mp3"});
  Run();
  ASSERT_FALSE(renamer_.view.process);
  renamer_.Activate();
  EXPECT_TRUE(renamer_.view.process);
  EXPECT_TRUE(renamer_.view.undo);
}

TEST_F(RenamerRunTest, ARunThatChangesNothingForgetsTheLast) {
  AddSongs({"a_song.mp3"});
  Run();
  engine_.document.PlaylistChanged = false;
  renamer_.Timer1_Timer();
  renamer_.CmdProcess_Click({});
  EXPECT_EQ(renamer_.view.report, "Done: 0/1 Items were Processed");
  EXPECT_TRUE(renamer_.view.process);
  EXPECT_FALSE(renamer_.view.undo);
  EXPECT_FALSE(engine_.document.PlaylistChanged);
  Undo();
  EXPECT_EQ(FilesOfC(), "A Song.mp3");
  EXPECT_EQ(renamer_.view.report, "Done: 0/0 Items were Restored");
}

TEST_F(RenamerRunTest, AFolderThatRefusesCostsOnlyItsFiles) {
  AddSongs({"locked\\a_1.mp3", "a_2.mp3"});
  class Refusing : public ForwardingFileSystem {
   public:
    using ForwardingFileSystem::ForwardingFileSystem;
    void Rename(const std::string& from, const std::string& to) const override {
      if (from.starts_with("c:\\locked\\")) throw Failure("permission denied");
      ForwardingFileSystem::Rename(from, to);
    }
  } files(*files_);
  Engine engine{fakes_.Over(files, feedback_), {"QUBLET2021", "c:\\program", ""}, ","};
  for (const char* name : {"c:\\locked\\a_1.mp3", "c:\\a_2.mp3"}) engine.items.AddFile(name, 0, 0);
  engine.document.ListView1.SelectWhere([](int, const Row&) { return true; });
  Renamer renamer(engine);
  fakes_.dialogs.answers = {MessageAnswer::kYes};
  renamer.CmdProcess_Click({});
  EXPECT_EQ(renamer.view.report, "Done: 1/2 Items were Processed");
  EXPECT_EQ(FilesOfC(), "A 2.mp3|locked/a_1.mp3");
}

TEST_F(RenamerRunTest, AReadOnlyFolderKeepsItsNames) {
  AddSongs({"locked\\a_1.mp3", "a_2.mp3"});
  const OrdinaryUser user(drives_.Root());
  std::filesystem::permissions(drives_.C() / "locked", std::filesystem::perms(0555));
  Run();
  EXPECT_EQ(renamer_.view.report, "Done: 1/2 Items were Processed");
  EXPECT_EQ(FilesOfC(), "A 2.mp3|locked/a_1.mp3");
  Undo();
  EXPECT_EQ(FilesOfC(), "a_2.mp3|locked/a_1.mp3");
  std::filesystem::permissions(drives_.C() / "locked", std::filesystem::perms(0755));
}

TEST_F(RenamerRunTest, AFileMovedIntoAFolderKeepsItsRowsPath) {
  AddSongs({"ACxDC.mp3"});
  std::filesystem::create_directory(drives_.C() / "AC");
  Quiet();
  renamer_.AddRule_Click("x", "\\");
  Run();
  EXPECT_EQ(FilesOfC(), "AC/DC.mp3");
  EXPECT_EQ(Rows().At(1).FullPath(), "c:\\DC.mp3");
  Undo();
  EXPECT_EQ(FilesOfC(), "ACxDC.mp3");
  EXPECT_EQ(renamer_.view.report, "Done: 1/1 Items were Restored");
}

TEST_F(RenamerRunTest, TwoWindowsOnOneFolderLoseNothing) {
  AddSongs({"a_1.mp3", "a_2.mp3"});
  Engine other{fakes_.Over(*files_, feedback_), {"QUBLET2021", "c:\\program", ""}, ","};
  for (const char* name : {"c:\\a_1.mp3", "c:\\a_2.mp3"}) other.items.AddFile(name, 0, 0);
  other.document.ListView1.SelectWhere([](int, const Row&) { return true; });
  Renamer second(other);
  Run();
  fakes_.dialogs.answers = {MessageAnswer::kYes, MessageAnswer::kYes};
  second.CmdProcess_Click({});
  EXPECT_EQ(second.view.report, "Done: 0/2 Items were Processed");
  EXPECT_EQ(drives_.Read("A 1.mp3") + drives_.Read("A 2.mp3"), "a_1.mp3a_2.mp3");
  EXPECT_FALSE(second.view.undo);
}

TEST_F(RenamerRunTest, ClosingRefreshesTheMainWindow) {
  AddSongs({"a.mp3"});
  window_.shown.clear();
  renamer_.CmdClose_Click();
  EXPECT_EQ(window_.shown, std::vector<std::string>{"click"});
  EXPECT_EQ(renamer_.view.report, "Ready...");
}

#ifndef _WIN32
TEST_F(RenamerRunTest, RenamesAFileThatTheDiskHasInAnotherCase) {
  drives_.Write("Music/Song A.mp3", "abc");
  AddRows({"MUSIC\\SONG A.MP3"});
  Rows().SelectWhere([](int, const Row&) { return true; });
  Quiet();
  renamer_.Option_Click(&RenameConfig::LowFilename, true);
  Run();
  EXPECT_EQ(FilesOfC(), "Music/song a.mp3");
  EXPECT_EQ(Rows().At(1).FullPath(), "c:\\Music\\song a.mp3");
  Undo();
  EXPECT_EQ(FilesOfC(), "Music/Song A.mp3");
  EXPECT_EQ(Rows().At(1).FullPath(), "c:\\Music\\Song A.mp3");
}
#endif

}  // namespace
}  // namespace qublet

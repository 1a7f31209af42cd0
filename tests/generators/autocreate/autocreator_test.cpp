#include "generators/autocreate/autocreator.h"

#include <gtest/gtest.h>

#include "support/editor_test_base.h"

namespace qublet {
namespace {

constexpr const char* kWelcome =
    "Welcome to the 'Autocreate M3U's Wizard'. This Wizard will automatically create M3U files in the folders of all "
    "the folders listed in the current playlist. Please choose where you would like this process to create the "
    "files... ";
constexpr const char* kReady = "The process is now ready to begin. Click Next> to begin creating the M3U files...";
constexpr const char* kComplete =
    "Process Complete, Click Next> to repeat the Wizard. If you wish to delete the files created click Undo.";

using Message = ScriptedDialogs::Message;

class AutoCreatorTest : public EditorTestBase {
 protected:
  AutoCreatorTest() {
    for (const char* name : {"m/a/1.mp3", "m/b/2.mp3", "m/a/3.mp3"}) drives_.Write(name, "song");
    std::filesystem::create_directory(drives_.C() / "lists");
  }

  AutoCreator Opened(const std::vector<std::string>& names = {"m\\a\\1.mp3", "m\\b\\2.mp3"}) {
    AddRows(names);
    return AutoCreator(engine_);
  }
  static std::string Folders(const AutoCreator& creator) {
    std::string text;
    for (const TickedFolder& folder : creator.view.lstPaths)
      text += (folder.ticked ? "x " : "- ") + folder.path + "\n";
    return text;
  }
  static void Next(AutoCreator& creator, int times = 1) {
    for (int i = 0; i < times; ++i) creator.CmdNext_Click([] {});
  }
  // From the start to the end of the run.
  static void Run(AutoCreator& creator) { Next(creator, 4); }
  static std::string LastLines(const AutoCreator& creator, std::size_t count) {
    std::string text;
    const Collection& lines = creator.view.lstReport;
    for (std::size_t i = lines.size() - count; i < lines.size(); ++i) text += lines.at(i) + "\n";
    return text;
  }
  void Undo(AutoCreator& creator, MessageAnswer answer = MessageAnswer::kYes) {
    fakes_.dialogs.answers.push_back(answer);
    creator.cmdUndo_Click([] {});
  }
};

TEST_F(AutoCreatorTest, TakesTheFoldersThatTheDiskHas) {
  AutoCreator creator = Opened({"M\\A\\1.MP3"});
  EXPECT_EQ(Folders(creator), "x c:\\m\\a\\\n");
  Run(creator);
  EXPECT_EQ(drives_.Read("m/a/a-m.m3u"), "1.mp3\r\n");
}

TEST_F(AutoCreatorTest, BeginsWithTheModes) {
  const AutoCreator creator = Opened();
  EXPECT_EQ(creator.view.frame, 0);
  EXPECT_FALSE(creator.view.back);
  EXPECT_TRUE(creator.view.next);
  EXPECT_TRUE(creator.view.modes);
  EXPECT_FALSE(creator.view.undo);
  EXPECT_EQ(creator.view.mode, AutoCreateMode::kBaseFolderOnly);
  EXPECT_EQ(creator.view.Label1, kWelcome);
  EXPECT_EQ(creator.view.Label5, kReady);
  EXPECT_EQ(creator.view.Parameters, "%1-%2");
  EXPECT_EQ(creator.view.TestOutput, "");
  EXPECT_EQ(creator.MyFolder(), "");
}

TEST_F(AutoCreatorTest, TicksEachFolderOfTheListThatIsThere) {
  EXPECT_EQ(Folders(Opened({"m\\a\\1.mp3", "gone\\9.mp3", "m\\b\\2.mp3", "m\\a\\3.mp3"})),
            "x c:\\m\\a\\\nx c:\\m\\b\\\nx c:\\m\\a\\\n");
}

TEST_F(AutoCreatorTest, ShutsItselfWhereNoFolderIsThere) {
  const AutoCreator creator = Opened({"gone\\9.mp3"});
  EXPECT_EQ(creator.view.Label1,
            "This Wizard can only work with items that are pointed to correctly in the Playlist...");
  EXPECT_FALSE(creator.view.next);
  EXPECT_FALSE(creator.view.modes);
  EXPECT_EQ(Folders(creator), "");
}

TEST_F(AutoCreatorTest, GoesThroughItsFramesAndBack) {
  AutoCreator creator = Opened();
  std::string way;
  const auto note = [&] { way += std::to_string(creator.view.frame) + (creator.view.back ? "< " : " "); };
  for (int i = 0; i < 3; ++i) {
    Next(creator);
    note();
  }
  for (int i = 0; i < 3; ++i) {
    creator.CmdBack_Click();
    note();
  }
  EXPECT_EQ(way, "1< 2< 3< 2< 1< 0 ");
  EXPECT_EQ(creator.view.lstReport, Collection());
}

TEST_F(AutoCreatorTest, RunsBehindTheLastFrameWithBothButtonsShut) {
  AutoCreator creator = Opened();
  Next(creator, 3);
  bool shut = true;
  int most = 0;
  creator.CmdNext_Click([&] {
    shut = shut && !creator.view.next && !creator.view.back;
    most = std::max(most, creator.view.progress);
  });
  EXPECT_TRUE(shut);
  EXPECT_EQ(most, 2);
  EXPECT_EQ(creator.view.maximum, 2);
  EXPECT_EQ(creator.view.progress, 0);
  EXPECT_EQ(creator.view.frame, 3);
  EXPECT_TRUE(creator.view.next);
  EXPECT_TRUE(creator.view.closes_next);
  EXPECT_FALSE(creator.view.back);
  EXPECT_TRUE(creator.view.undo);
  EXPECT_EQ(creator.view.Label5, kComplete);
  EXPECT_EQ(LastLines(creator, 6),
            "> - c:\\m\\a\\a-m.m3u\n> - c:\\m\\b\\b-m.m3u\nPROCESS COMPLETE!\n2 Files Requested\n"
            "2 Files written OK\n0 Files could not be created\n");
  EXPECT_EQ(drives_.Read("m/a/a-m.m3u"), "1.mp3\r\n");
}

TEST_F(AutoCreatorTest, ShowsEachLineWhenItComes) {
  AutoCreator creator = Opened();
  Next(creator, 3);
  std::size_t shown = 0;
  bool one_by_one = true;
  creator.CmdNext_Click([&] {
    one_by_one = one_by_one && creator.view.lstReport.size() <= shown + 1;
    shown = creator.view.lstReport.size();
  });
  EXPECT_TRUE(one_by_one);
  EXPECT_EQ(shown, creator.view.lstReport.size());
  EXPECT_GT(shown, 10U);
}

TEST_F(AutoCreatorTest, LeavesOutWhatIsNotTicked) {
  AutoCreator creator = Opened();
  creator.view.lstPaths[0].ticked = false;
  Run(creator);
  EXPECT_EQ(LastLines(creator, 5),
            "> - c:\\m\\b\\b-m.m3u\nPROCESS COMPLETE!\n1 Files Requested\n1 Files written OK\n"
            "0 Files could not be created\n");
  EXPECT_FALSE(files_->Exists("c:\\m\\a\\a-m.m3u"));
}

TEST_F(AutoCreatorTest, WithoutATickThereIsNothingToDo) {
  AutoCreator creator = Opened();
  for (TickedFolder& folder : creator.view.lstPaths) folder.ticked = false;
  Run(creator);
  EXPECT_EQ(LastLines(creator, 2), "No files requested...\nPROCESS COMPLETE!\n");
  EXPECT_EQ(creator.view.Label5, kReady);
  EXPECT_FALSE(creator.view.undo);
  EXPECT_TRUE(creator.view.next);
  Next(creator);
  EXPECT_EQ(creator.view.frame, 0);
  EXPECT_EQ(Folders(creator), "x c:\\m\\a\\\nx c:\\m\\b\\\n");
}

TEST_F(AutoCreatorTest, AFolderThatComesAgainIsWrittenOnceItsRepeatIsUnticked) {
  AutoCreator creator = Opened({"m\\a\\1.mp3", "m\\b\\2.mp3", "m\\a\\3.mp3"});
  Run(creator);
  EXPECT_EQ(LastLines(creator, 7),
            "Duplicate Filenames found...\nPROCESS FAILED!\nYou need to check the filenaming format\n"
            "to make sure it does not result in\nduplicate files being created. Try\n"
            "adding lower-level folders to the\nname. E.G %1. Click Next> to continue.\n");
  EXPECT_EQ(creator.view.Label5, kReady);
  EXPECT_FALSE(creator.view.undo);
  Next(creator);
  creator.view.lstPaths[2].ticked = false;
  Run(creator);
  EXPECT_EQ(drives_.Read("m/a/a-m.m3u"), "1.mp3\r\n3.mp3\r\n");
}

TEST_F(AutoCreatorTest, StartsAnewWithTheListAsItIsThen) {
  AutoCreator creator = Opened();
  creator.view.mode = AutoCreateMode::kBothFolders;
  creator.view.Parameters = "all %1";
  creator.CmdTest_Click();
  Run(creator);
  AddRows({"m\\a\\3.mp3"});
  creator.view.lstPaths[0].ticked = false;
  Next(creator);
  EXPECT_EQ(creator.view.frame, 0);
  EXPECT_FALSE(creator.view.back);
  EXPECT_FALSE(creator.view.closes_next);
  EXPECT_FALSE(creator.view.undo);
  EXPECT_EQ(creator.view.Label5, kReady);
  EXPECT_EQ(creator.view.lstReport, Collection());
  EXPECT_EQ(creator.view.TestOutput, "");
  EXPECT_EQ(Folders(creator), "x c:\\m\\a\\\nx c:\\m\\b\\\nx c:\\m\\a\\\n");
  EXPECT_EQ(creator.view.mode, AutoCreateMode::kBothFolders);
  EXPECT_EQ(creator.view.Parameters, "all %1");
}

TEST_F(AutoCreatorTest, ShutsItselfWhenTheFoldersHaveGoneMeanwhile) {
  AutoCreator creator = Opened();
  Run(creator);
  std::filesystem::remove_all(drives_.C() / "m");
  Next(creator);
  EXPECT_FALSE(creator.view.next);
  EXPECT_FALSE(creator.view.modes);
}

TEST_F(AutoCreatorTest, AsksWhereAllPlaylistsGo) {
  AutoCreator creator = Opened();
  fakes_.dialogs.folders = {"c:\\lists"};
  creator.Mode_Click(AutoCreateMode::kMyFolderOnly);
  EXPECT_EQ(fakes_.dialogs.browse_titles, std::vector<std::string>{"Select Folder..."});
  EXPECT_EQ(creator.MyFolder(), "c:\\lists\\");
  EXPECT_EQ(creator.view.mode, AutoCreateMode::kMyFolderOnly);
  Run(creator);
  EXPECT_EQ(drives_.Read("lists/b-m.m3u"), "c:\\m\\b\\2.mp3\r\n");
  // A repeat doesn't ask by itself.
  EXPECT_EQ(creator.view.mode, AutoCreateMode::kBaseFolderOnly);
  Next(creator);
  EXPECT_EQ(fakes_.dialogs.browse_titles.size(), 1U);
}

TEST_F(AutoCreatorTest, TakesTheRootOfADriveForAll) {
  AutoCreator creator = Opened();
  fakes_.dialogs.folders = {"d:\\"};
  creator.Mode_Click(AutoCreateMode::kMyFolderOnly);
  EXPECT_EQ(creator.MyFolder(), "d:\\");
}

TEST_F(AutoCreatorTest, WithoutAFolderForAllTheFoldersHaveTheirOwn) {
  AutoCreator creator = Opened();
  fakes_.dialogs.folders = {"c:\\lists", std::nullopt};
  creator.Mode_Click(AutoCreateMode::kMyFolderOnly);
  creator.Mode_Click(AutoCreateMode::kMyFolderOnly);
  EXPECT_EQ(fakes_.dialogs.browse_starts, (std::vector<std::string>{"", "c:\\lists\\"}));
  EXPECT_EQ(creator.MyFolder(), "");
  EXPECT_EQ(creator.view.mode, AutoCreateMode::kBaseFolderOnly);
  creator.Mode_Click(AutoCreateMode::kRootFolderOnly);
  EXPECT_EQ(creator.view.mode, AutoCreateMode::kRootFolderOnly);
  EXPECT_EQ(fakes_.dialogs.browse_titles.size(), 2U);
}

TEST_F(AutoCreatorTest, AfterAStopTheFolderForAllStays) {
  AutoCreator creator = Opened();
  fakes_.dialogs.folders = {"c:\\lists"};
  creator.Mode_Click(AutoCreateMode::kMyFolderOnly);
  creator.view.Parameters = "same";
  Run(creator);
  EXPECT_EQ(LastLines(creator, 1), "name. E.G %1. Click Next> to continue.\n");
  EXPECT_EQ(creator.view.mode, AutoCreateMode::kMyFolderOnly);
  EXPECT_EQ(creator.MyFolder(), "c:\\lists\\");
}

TEST_F(AutoCreatorTest, ItemsOnTwoDrivesSwitchTheMode) {
  drives_.WriteAt(drives_.D() / "n" / "4.mp3", "song");
  engine_.items.AddFile("d:\\n\\4.mp3", 0, 0);
  AutoCreator creator = Opened();
  creator.Mode_Click(AutoCreateMode::kBothFolders);
  Run(creator);
  EXPECT_EQ(creator.view.mode, AutoCreateMode::kBaseFolderOnly);
  EXPECT_EQ(drives_.ReadAt(drives_.D() / "n" / "n-d.m3u"), "4.mp3\r\n");
}

TEST_F(AutoCreatorTest, OpensTheFolderOfARow) {
  AutoCreator creator = Opened();
  for (const int row : {-1, 1, 2}) creator.lstPaths_DblClick(row);
  EXPECT_EQ(fakes_.shell.explored, std::vector<std::string>{"c:\\m\\b\\"});
}

TEST_F(AutoCreatorTest, TestsTheFormatOnTheFirstFolder) {
  AutoCreator creator = Opened();
  creator.view.lstPaths[0].ticked = false;
  EXPECT_TRUE(creator.CmdTest_Click());
  EXPECT_EQ(creator.view.TestOutput, "a-m.m3u");
  creator.view.Parameters = "";
  EXPECT_TRUE(creator.CmdTest_Click());
  EXPECT_EQ(creator.view.TestOutput, "-a-m-c-------.m3u");
  EXPECT_EQ(creator.view.Parameters, "");
}

TEST_F(AutoCreatorTest, TestsTheFormatOnASampleWhereThereIsNoFolder) {
  AutoCreator creator = Opened({});
  EXPECT_TRUE(creator.CmdTest_Click());
  EXPECT_EQ(creator.view.TestOutput, "artist-mp3s.m3u");
}

TEST_F(AutoCreatorTest, PutsBackAFormatThatGivesNoName) {
  AutoCreator creator = Opened();
  creator.CmdTest_Click();
  creator.view.Parameters = "%9:";
  EXPECT_FALSE(creator.CmdTest_Click());
  EXPECT_EQ(fakes_.dialogs.messages, (std::vector<Message>{{"The resultant File name will not be valid.",
                                                            MessageIcon::kExclamation, MessageButtons::kOk}}));
  EXPECT_EQ(creator.view.Parameters, "%1-%2");
  EXPECT_EQ(creator.view.TestOutput, "a-m.m3u");
}

TEST_F(AutoCreatorTest, AnUndoTakesAllBack) {
  AutoCreator creator = Opened();
  Run(creator);
  const std::size_t before = creator.view.lstReport.size();
  Undo(creator);
  EXPECT_EQ(
      fakes_.dialogs.messages,
      (std::vector<Message>{{"Delete all files created?", MessageIcon::kQuestion, MessageButtons::kYesNoCancel}}));
  EXPECT_EQ(creator.view.lstReport.size(), before + 7);
  EXPECT_EQ(LastLines(creator, 7),
            "User request UNDO....\nSuccessfully Deleted file: c:\\m\\a\\a-m.m3u\n"
            "Successfully Deleted file: c:\\m\\b\\b-m.m3u\nPROCESS COMPLETE!\n2 Files Requested\n"
            "2 Files deleted OK\n0 Files could not be deleted [in use, missing?]\n");
  EXPECT_FALSE(creator.view.undo);
  EXPECT_EQ(creator.view.progress, 0);
  EXPECT_FALSE(files_->Exists("c:\\m\\a\\a-m.m3u"));
}

TEST_F(AutoCreatorTest, AnUndoIsMadeOnlyAfterAYes) {
  AutoCreator creator = Opened();
  Run(creator);
  const std::size_t before = creator.view.lstReport.size();
  Undo(creator, MessageAnswer::kNo);
  Undo(creator, MessageAnswer::kCancel);
  EXPECT_EQ(creator.view.lstReport.size(), before);
  EXPECT_TRUE(creator.view.undo);
  EXPECT_TRUE(files_->Exists("c:\\m\\a\\a-m.m3u"));
}

TEST_F(AutoCreatorTest, AnUndoThatFailedInPartTriesAllAgain) {
  AutoCreator creator = Opened();
  Run(creator);
  std::filesystem::remove(drives_.C() / "m" / "a" / "a-m.m3u");
  Undo(creator);
  EXPECT_TRUE(creator.view.undo);
  EXPECT_EQ(LastLines(creator, 3),
            "2 Files Requested\n1 Files deleted OK\n1 Files could not be deleted [in use, missing?]\n");
  drives_.Write("m/a/a-m.m3u", "there again");
  Undo(creator);
  EXPECT_EQ(LastLines(creator, 6),
            "Successfully Deleted file: c:\\m\\a\\a-m.m3u\nCould not Delete file: c:\\m\\b\\b-m.m3u\n"
            "PROCESS COMPLETE!\n2 Files Requested\n1 Files deleted OK\n"
            "1 Files could not be deleted [in use, missing?]\n");
  EXPECT_TRUE(creator.view.undo);
}

TEST_F(AutoCreatorTest, ARunThatWroteNothingLeavesNothingToUndo) {
  std::filesystem::create_directory(drives_.C() / "m" / "a" / "a-m.m3u");
  AutoCreator creator = Opened();
  creator.view.lstPaths[1].ticked = false;
  Run(creator);
  EXPECT_EQ(LastLines(creator, 5),
            "X - c:\\m\\a\\a-m.m3u\nPROCESS COMPLETE!\n1 Files Requested\n"
            "0 Files written OK\n1 Files could not be created\n");
  EXPECT_FALSE(creator.view.undo);
  EXPECT_EQ(creator.view.Label5, kComplete);
}

}  // namespace
}  // namespace qublet

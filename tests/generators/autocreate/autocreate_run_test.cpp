#include "generators/autocreate/autocreate_run.h"

#include <gtest/gtest.h>

#include "support/stopped_clock.h"
#include "support/temporary_drives.h"

namespace qublet {
namespace {

using Mode = AutoCreateMode;

class AutoCreateRunTest : public testing::Test {
 protected:
  AutoCreateRunTest() {
    for (const char* name : {"m/a/x/1.mp3", "m/a/x/2.mp3", "m/0.mp3", "m/b/x/3.mp3"}) drives_.Write(name, "song");
    order_.FileArray = {"c:\\m\\a\\x\\1.mp3", "c:\\m\\a\\x\\2.mp3", "c:\\m\\0.mp3", "c:\\m\\b\\x\\3.mp3"};
    order_.Paths = {"c:\\m\\a\\x\\", "c:\\m\\", "c:\\m\\b\\x\\"};
    order_.MyFolder = "d:\\lists\\";
    std::filesystem::create_directory(drives_.D() / "lists");
  }

  // What is reported, a line each.
  std::string Run(Mode mode, bool dry_run = false) {
    order_.mode = mode;
    report_.clear();
    result_ = CreatePlaylists(order_, *files_, clock_, watch_, dry_run);
    return report_;
  }
  std::string Undo() {
    report_.clear();
    all_gone_ = UndoPlaylists(result_.Written, *files_, watch_);
    return report_;
  }

  TemporaryDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
  StoppedClock clock_;
  AutoCreateOrder order_;
  AutoCreateResult result_;
  bool all_gone_ = false;
  std::string report_;
  std::vector<std::pair<int, int>> progress_;
  AutoCreateWatch watch_{[this](const std::string& line) { report_ += line + "\n"; },
                         [this](int value, int maximum) { progress_.emplace_back(value, maximum); }};
};

TEST_F(AutoCreateRunTest, WritesIntoTheBaseFolders) {
  EXPECT_EQ(Run(Mode::kBaseFolderOnly),
            "Searching for Root Folder...\n"
            "Root Folder found as: c:\\m\n"
            "Building a list of files to be created...\n"
            "c:\\m\\a\\x\\x-a.m3u\n"
            "c:\\m\\m-c.m3u\n"
            "c:\\m\\b\\x\\x-b.m3u\n"
            "Searching for duplicates...\n"
            "No duplicates found...\n"
            "Creating Files...\n"
            "> - c:\\m\\a\\x\\x-a.m3u\n"
            "> - c:\\m\\m-c.m3u\n"
            "> - c:\\m\\b\\x\\x-b.m3u\n"
            "PROCESS COMPLETE!\n"
            "3 Files Requested\n"
            "3 Files written OK\n"
            "0 Files could not be created\n");
  EXPECT_EQ(drives_.Read("m/a/x/x-a.m3u"), "1.mp3\r\n2.mp3\r\n");
  EXPECT_EQ(drives_.Read("m/m-c.m3u"), "0.mp3\r\n");
  EXPECT_EQ(drives_.Read("m/b/x/x-b.m3u"), "3.mp3\r\n");
  EXPECT_EQ(result_.end, AutoCreateEnd::kWritten);
  EXPECT_EQ(result_.mode, Mode::kBaseFolderOnly);
  EXPECT_EQ(result_.Written, (Collection{"c:\\m\\a\\x\\x-a.m3u", "c:\\m\\m-c.m3u", "c:\\m\\b\\x\\x-b.m3u"}));
  EXPECT_EQ(result_.failed, 0);
  EXPECT_EQ(progress_, (std::vector<std::pair<int, int>>{{1, 3}, {2, 3}, {3, 3}}));
}

TEST_F(AutoCreateRunTest, WritesIntoTheRootFolder) {
  EXPECT_EQ(Run(Mode::kRootFolderOnly),
            "Searching for Root Folder...\n"
            "Root Folder found as: c:\\m\n"
            "Building a list of files to be created...\n"
            "c:\\m\\x-a.m3u\n"
            "c:\\m\\m-c.m3u\n"
            "c:\\m\\x-b.m3u\n"
            "Searching for duplicates...\n"
            "No duplicates found...\n"
            "Creating Files...\n"
            "> - c:\\m\\x-a.m3u\n"
            "> - c:\\m\\m-c.m3u\n"
            "> - c:\\m\\x-b.m3u\n"
            "PROCESS COMPLETE!\n"
            "3 Files Requested\n"
            "3 Files written OK\n"
            "0 Files could not be created\n");
  EXPECT_EQ(drives_.Read("m/x-a.m3u"), "a\\x\\1.mp3\r\na\\x\\2.mp3\r\n");
  EXPECT_EQ(drives_.Read("m/m-c.m3u"), "0.mp3\r\n");
}

TEST_F(AutoCreateRunTest, WritesIntoBothWithEachItemTwiceInTheRoot) {
  EXPECT_EQ(Run(Mode::kBothFolders),
            "Searching for Root Folder...\n"
            "Root Folder found as: c:\\m\n"
            "Building a list of files to be created...\n"
            "c:\\m\\a\\x\\x-a.m3u\n"
            "c:\\m\\x-a.m3u\n"
            "c:\\m\\m-c.m3u\n"
            "c:\\m\\b\\x\\x-b.m3u\n"
            "c:\\m\\x-b.m3u\n"
            "Searching for duplicates...\n"
            "No duplicates found...\n"
            "Creating Files...\n"
            "> - c:\\m\\a\\x\\x-a.m3u\n"
            "> - c:\\m\\x-a.m3u\n"
            "> - c:\\m\\m-c.m3u\n"
            "> - c:\\m\\b\\x\\x-b.m3u\n"
            "> - c:\\m\\x-b.m3u\n"
            "PROCESS COMPLETE!\n"
            "5 Files Requested\n"
            "5 Files written OK\n"
            "0 Files could not be created\n");
  EXPECT_EQ(drives_.Read("m/a/x/x-a.m3u"), "1.mp3\r\n2.mp3\r\n");
  EXPECT_EQ(drives_.Read("m/x-a.m3u"), "a\\x\\1.mp3\r\na\\x\\2.mp3\r\na\\x\\1.mp3\r\na\\x\\2.mp3\r\n");
  EXPECT_EQ(drives_.Read("m/m-c.m3u"), "0.mp3\r\n");
  EXPECT_EQ(progress_, (std::vector<std::pair<int, int>>{{1, 3}, {2, 3}, {3, 3}}));
}

TEST_F(AutoCreateRunTest, WritesIntoAFolderOfTheUsersWithoutAskingForTheRoot) {
  EXPECT_EQ(Run(Mode::kMyFolderOnly),
            "Building a list of files to be created...\n"
            "d:\\lists\\x-a.m3u\n"
            "d:\\lists\\m-c.m3u\n"
            "d:\\lists\\x-b.m3u\n"
            "Searching for duplicates...\n"
            "No duplicates found...\n"
            "Creating Files...\n"
            "> - d:\\lists\\x-a.m3u\n"
            "> - d:\\lists\\m-c.m3u\n"
            "> - d:\\lists\\x-b.m3u\n"
            "PROCESS COMPLETE!\n"
            "3 Files Requested\n"
            "3 Files written OK\n"
            "0 Files could not be created\n");
  EXPECT_EQ(drives_.ReadAt(drives_.D() / "lists" / "x-a.m3u"), "c:\\m\\a\\x\\1.mp3\r\nc:\\m\\a\\x\\2.mp3\r\n");
  EXPECT_EQ(result_.mode, Mode::kMyFolderOnly);
}

TEST_F(AutoCreateRunTest, ItemsOnTwoDrivesHaveNoRoot) {
  drives_.WriteAt(drives_.D() / "n" / "4.mp3", "song");
  order_.FileArray.emplace_back("d:\\n\\4.mp3");
  order_.Paths = {"c:\\m\\a\\x\\", "d:\\n\\"};
  for (const Mode mode : {Mode::kRootFolderOnly, Mode::kBothFolders, Mode::kBaseFolderOnly}) {
    EXPECT_EQ(Run(mode),
              "Searching for Root Folder...\n"
              "Could not parse Root Folder, Changing mode...\n"
              "Set mode: Create M3Us in Base folder only...\n"
              "Building a list of files to be created...\n"
              "c:\\m\\a\\x\\x-a.m3u\n"
              "d:\\n\\n-d.m3u\n"
              "Searching for duplicates...\n"
              "No duplicates found...\n"
              "Creating Files...\n"
              "> - c:\\m\\a\\x\\x-a.m3u\n"
              "> - d:\\n\\n-d.m3u\n"
              "PROCESS COMPLETE!\n"
              "2 Files Requested\n"
              "2 Files written OK\n"
              "0 Files could not be created\n");
    EXPECT_EQ(result_.mode, Mode::kBaseFolderOnly);
  }
  EXPECT_EQ(drives_.ReadAt(drives_.D() / "n" / "n-d.m3u"), "4.mp3\r\n");
}

TEST_F(AutoCreateRunTest, ARepeatedFolderStopsItBeforeAnythingIsWritten) {
  order_.Paths = {"c:\\m\\a\\x\\", "c:\\m\\", "c:\\m\\a\\x\\"};
  EXPECT_EQ(Run(Mode::kBaseFolderOnly),
            "Searching for Root Folder...\n"
            "Root Folder found as: c:\\m\n"
            "Building a list of files to be created...\n"
            "c:\\m\\a\\x\\x-a.m3u\n"
            "c:\\m\\m-c.m3u\n"
            "c:\\m\\a\\x\\x-a.m3u\n"
            "Searching for duplicates...\n"
            "Duplicate Filenames found...\n"
            "PROCESS FAILED!\n"
            "You need to check the filenaming format\n"
            "to make sure it does not result in\n"
            "duplicate files being created. Try\n"
            "adding lower-level folders to the\n"
            "name. E.G %1. Click Next> to continue.\n");
  EXPECT_EQ(result_.end, AutoCreateEnd::kDuplicates);
  EXPECT_EQ(result_.Written, Collection());
  EXPECT_FALSE(files_->Exists("c:\\m\\m-c.m3u"));
  EXPECT_TRUE(progress_.empty());
}

TEST_F(AutoCreateRunTest, NamesThatAreTheSameInTheRootAreNotTheSameInTheirFolders) {
  order_.Paths = {"c:\\m\\a\\x\\", "c:\\m\\b\\x\\"};
  order_.Parameters = "%1";
  Run(Mode::kRootFolderOnly);
  EXPECT_EQ(result_.end, AutoCreateEnd::kDuplicates);
  Run(Mode::kMyFolderOnly);
  EXPECT_EQ(result_.end, AutoCreateEnd::kDuplicates);
  Run(Mode::kBaseFolderOnly);
  EXPECT_EQ(result_.end, AutoCreateEnd::kWritten);
  EXPECT_EQ(drives_.Read("m/b/x/x.m3u"), "3.mp3\r\n");
}

TEST_F(AutoCreateRunTest, NamesThatDifferInCaseAreNoDuplicates) {
  order_.Paths = {"c:\\m\\a\\x\\", "c:\\m\\A\\x\\"};
  Run(Mode::kRootFolderOnly, true);
  EXPECT_EQ(result_.end, AutoCreateEnd::kChecked);
}

TEST_F(AutoCreateRunTest, TheRootListedTwiceIsRequestedOnceAndWrittenTwice) {
  order_.Paths = {"c:\\m\\", "c:\\m\\a\\x\\", "c:\\m\\"};
  EXPECT_EQ(Run(Mode::kRootFolderOnly),
            "Searching for Root Folder...\n"
            "Root Folder found as: c:\\m\n"
            "Building a list of files to be created...\n"
            "c:\\m\\m-c.m3u\n"
            "c:\\m\\x-a.m3u\n"
            "Searching for duplicates...\n"
            "No duplicates found...\n"
            "Creating Files...\n"
            "> - c:\\m\\m-c.m3u\n"
            "> - c:\\m\\x-a.m3u\n"
            "> - c:\\m\\m-c.m3u\n"
            "PROCESS COMPLETE!\n"
            "2 Files Requested\n"
            "3 Files written OK\n"
            "0 Files could not be created\n");
  EXPECT_EQ(drives_.Read("m/m-c.m3u"), "0.mp3\r\n");
}

TEST_F(AutoCreateRunTest, NothingIsRequestedWithoutAFolder) {
  order_.Paths.clear();
  EXPECT_EQ(Run(Mode::kBothFolders),
            "Searching for Root Folder...\n"
            "Root Folder found as: c:\\m\n"
            "Building a list of files to be created...\n"
            "No files requested...\n"
            "PROCESS COMPLETE!\n");
  EXPECT_EQ(result_.end, AutoCreateEnd::kNothingRequested);
  EXPECT_EQ(Run(Mode::kMyFolderOnly),
            "Building a list of files to be created...\n"
            "No files requested...\n"
            "PROCESS COMPLETE!\n");
}

TEST_F(AutoCreateRunTest, ATargetThatCanNotBeWrittenCostsThatOneOnly) {
  std::filesystem::create_directory(drives_.C() / "m" / "m-c.m3u");
  EXPECT_EQ(Run(Mode::kBaseFolderOnly),
            "Searching for Root Folder...\n"
            "Root Folder found as: c:\\m\n"
            "Building a list of files to be created...\n"
            "c:\\m\\a\\x\\x-a.m3u\n"
            "c:\\m\\m-c.m3u\n"
            "c:\\m\\b\\x\\x-b.m3u\n"
            "Searching for duplicates...\n"
            "No duplicates found...\n"
            "Creating Files...\n"
            "> - c:\\m\\a\\x\\x-a.m3u\n"
            "X - c:\\m\\m-c.m3u\n"
            "> - c:\\m\\b\\x\\x-b.m3u\n"
            "PROCESS COMPLETE!\n"
            "3 Files Requested\n"
            "2 Files written OK\n"
            "1 Files could not be created\n");
  EXPECT_EQ(result_.Written, (Collection{"c:\\m\\a\\x\\x-a.m3u", "c:\\m\\b\\x\\x-b.m3u"}));
  EXPECT_EQ(result_.failed, 1);
  EXPECT_EQ(drives_.Read("m/b/x/x-b.m3u"), "3.mp3\r\n");
}

TEST_F(AutoCreateRunTest, AFormatThatGivesNoNameWritesNothingAndHarmsNoFolder) {
  order_.Paths = {"c:\\m\\a\\x\\"};
  order_.Parameters = ":";
  EXPECT_EQ(Run(Mode::kBaseFolderOnly),
            "Searching for Root Folder...\n"
            "Root Folder found as: c:\\m\n"
            "Building a list of files to be created...\n"
            "c:\\m\\a\\x\\\n"
            "Searching for duplicates...\n"
            "No duplicates found...\n"
            "Creating Files...\n"
            "X - c:\\m\\a\\x\\\n"
            "PROCESS COMPLETE!\n"
            "1 Files Requested\n"
            "0 Files written OK\n"
            "1 Files could not be created\n");
  EXPECT_EQ(files_->ReadFolder("c:\\m\\a\\x").size(), 2U);
}

TEST_F(AutoCreateRunTest, ReplacesWhatIsThereAndNoReadOnlyFile) {
  drives_.Write("m/m-c.m3u", "old");
  drives_.Write("m/b/x/x-b.m3u", "old");
  files_->SetAttributes("c:\\m\\b\\x\\x-b.m3u", kReadOnly);
  Run(Mode::kBaseFolderOnly);
  EXPECT_EQ(drives_.Read("m/m-c.m3u"), "0.mp3\r\n");
  EXPECT_EQ(drives_.Read("m/b/x/x-b.m3u"), "old");
  EXPECT_EQ(result_.failed, 1);
}

TEST_F(AutoCreateRunTest, ADryRunEndsAheadOfTheFirstFile) {
  EXPECT_EQ(Run(Mode::kRootFolderOnly, true),
            "Searching for Root Folder...\n"
            "Root Folder found as: c:\\m\n"
            "Building a list of files to be created...\n"
            "c:\\m\\x-a.m3u\n"
            "c:\\m\\m-c.m3u\n"
            "c:\\m\\x-b.m3u\n"
            "Searching for duplicates...\n"
            "No duplicates found...\n");
  EXPECT_EQ(result_.end, AutoCreateEnd::kChecked);
  EXPECT_FALSE(files_->Exists("c:\\m\\x-a.m3u"));
  order_.Paths.emplace_back("c:\\m\\a\\x\\");
  Run(Mode::kRootFolderOnly, true);
  EXPECT_EQ(result_.end, AutoCreateEnd::kDuplicates);
}

TEST_F(AutoCreateRunTest, WritesNamesOfAnyLetters) {
  drives_.Write("m/音楽/é.mp3", "song");
  order_.FileArray.emplace_back("c:\\m\\音楽\\é.mp3");
  order_.Paths = {"c:\\m\\音楽\\"};
  Run(Mode::kRootFolderOnly);
  EXPECT_EQ(drives_.Read("m/音楽-m.m3u"), "音楽\\é.mp3\r\n");
}

TEST_F(AutoCreateRunTest, AnUndoDeletesAllThatWasWritten) {
  Run(Mode::kBothFolders);
  progress_.clear();
  EXPECT_EQ(Undo(),
            "User request UNDO....\n"
            "Successfully Deleted file: c:\\m\\a\\x\\x-a.m3u\n"
            "Successfully Deleted file: c:\\m\\x-a.m3u\n"
            "Successfully Deleted file: c:\\m\\m-c.m3u\n"
            "Successfully Deleted file: c:\\m\\b\\x\\x-b.m3u\n"
            "Successfully Deleted file: c:\\m\\x-b.m3u\n"
            "PROCESS COMPLETE!\n"
            "5 Files Requested\n"
            "5 Files deleted OK\n"
            "0 Files could not be deleted [in use, missing?]\n");
  EXPECT_TRUE(all_gone_);
  EXPECT_EQ(progress_, (std::vector<std::pair<int, int>>{{1, 5}, {2, 5}, {3, 5}, {4, 5}, {5, 5}}));
  EXPECT_FALSE(files_->Exists("c:\\m\\m-c.m3u"));
  EXPECT_EQ(drives_.Read("m/0.mp3"), "song");
}

TEST_F(AutoCreateRunTest, AnUndoGoesOnBehindAFileThatIsGone) {
  Run(Mode::kBaseFolderOnly);
  std::filesystem::remove(drives_.C() / "m" / "m-c.m3u");
  EXPECT_EQ(Undo(),
            "User request UNDO....\n"
            "Successfully Deleted file: c:\\m\\a\\x\\x-a.m3u\n"
            "Could not Delete file: c:\\m\\m-c.m3u\n"
            "Successfully Deleted file: c:\\m\\b\\x\\x-b.m3u\n"
            "PROCESS COMPLETE!\n"
            "3 Files Requested\n"
            "2 Files deleted OK\n"
            "1 Files could not be deleted [in use, missing?]\n");
  EXPECT_FALSE(all_gone_);
  EXPECT_FALSE(files_->Exists("c:\\m\\b\\x\\x-b.m3u"));
}

}  // namespace
}  // namespace qublet

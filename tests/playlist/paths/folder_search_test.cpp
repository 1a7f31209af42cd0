#include <gtest/gtest.h>

#include <map>

#include "platform/forwarding_file_system.h"
#include "playlist/paths/folder_walk.h"
#include "support/ordinary_user.h"
#include "support/recorders.h"
#include "support/temporary_drives.h"

namespace qublet {
namespace {

// Counts how often each folder is read, and asks for the attributes of a file.
class CountingFileSystem : public ForwardingFileSystem {
 public:
  using ForwardingFileSystem::ForwardingFileSystem;

  std::vector<FolderEntry> ReadFolder(const std::string& folder) const override {
    ++reads[ToNative(folder)];
    return ForwardingFileSystem::ReadFolder(folder);
  }
  std::optional<unsigned> Attributes(const std::string& path) const override {
    ++asked;
    return ForwardingFileSystem::Attributes(path);
  }

  mutable std::map<std::string, int> reads;
  mutable int asked = 0;
};

class FolderSearchTest : public testing::Test {
 protected:
  void Touch(const Collection& names) const {
    for (const std::string& name : names) drives_.Write(name, "x");
  }
  void TouchD(const Collection& names) const {
    for (const std::string& name : names) TemporaryDrives::WriteAt(drives_.D() / TemporaryDrives::PathOf(name), "x");
  }
  static Collection PathsOf(const std::vector<FoundName>& found) {
    Collection paths;
    for (const FoundName& file : found) paths.push_back(file.path);
    return paths;
  }
  Collection Found(const Collection& names, const Collection& folders = {"c:\\"}) {
    FolderSearch search(*files_, feedback_, names);
    std::vector<FoundName> found;
    for (const std::string& folder : folders) search.Walk(folder, found);
    return PathsOf(found);
  }

  const TemporaryDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
  RecordingFeedback feedback_;
};

TEST_F(FolderSearchTest, TakesDriveByDriveFolderByFolderNameByName) {
  Touch({"z.mp3", "m/z.mp3", "m/a.mp3", "B/z.mp3"});
  TouchD({"a.mp3", "old/z.mp3"});
  EXPECT_EQ(Found({"z.mp3", "gone.mp3", "a.mp3"}, {"c:\\", "d:\\"}),
            (Collection{"c:\\z.mp3", "c:\\B\\z.mp3", "c:\\m\\z.mp3", "c:\\m\\a.mp3", "d:\\a.mp3", "d:\\old\\z.mp3"}));
}

TEST_F(FolderSearchTest, TellsWhichNameWasFound) {
  Touch({"m/b.mp3", "m/a.mp3"});
  FolderSearch search(*files_, feedback_, {"a.mp3", "gone.mp3", "b.mp3", "a.mp3"});
  std::vector<FoundName> found;
  search.Walk("c:\\m", found);
  ASSERT_EQ(PathsOf(found), (Collection{"c:\\m\\a.mp3", "c:\\m\\b.mp3", "c:\\m\\a.mp3"}));
  EXPECT_EQ(found[0].name, 0u);
  EXPECT_EQ(found[1].name, 2u);
  EXPECT_EQ(found[2].name, 3u);
}

TEST_F(FolderSearchTest, FindsATailOfFoldersAnywhere) {
  Touch({"backup/rock/a.mp3", "rock/b.mp3"});
  TouchD({"rock/a.mp3"});
  EXPECT_EQ(Found({"rock\\a.mp3"}, {"c:\\", "d:\\"}), (Collection{"c:\\backup\\rock\\a.mp3", "d:\\rock\\a.mp3"}));
}

TEST_F(FolderSearchTest, LettersOfPatternsStandForThemselves) {
  Touch({"m/ab.mp3", "m/[a]b.mp3"});
  EXPECT_EQ(Found({"*.mp3", "?b.mp3", "*.*", "*", "m\\*.mp3"}), Collection{});
  EXPECT_EQ(Found({"[a]b.mp3"}), Collection{"c:\\m\\[a]b.mp3"});
}

TEST_F(FolderSearchTest, FindsNamesThatHoldLettersOfPatterns) {
  Touch({"m/a*b?.mp3", "m/ab.mp3"});
  EXPECT_EQ(Found({"a*b?.mp3", "m\\a*b?.mp3"}), (Collection{"c:\\m\\a*b?.mp3", "c:\\m\\a*b?.mp3"}));
}

TEST_F(FolderSearchTest, FindsAnyNameThatAFileCanBear) {
  const std::string longest(251, 'x');
  Touch({"m/" + longest + ".mp3", "m/caf\u00E9 \u97F3.mp3"});
  EXPECT_EQ(Found({longest + ".mp3", "caf\u00E9 \u97F3.mp3"}),
            (Collection{"c:\\m\\" + longest + ".mp3", "c:\\m\\caf\u00E9 \u97F3.mp3"}));
}

TEST_F(FolderSearchTest, FindsNamesWithLineBreaks) {
  Touch({"m/two\nlines.mp3"});
  Collection results;
  WalkFolder(*files_, feedback_, "c:\\m", {"*.mp3"}, results, false, true);
  ASSERT_EQ(results.size(), 1u);
  EXPECT_EQ(Found({results[0].substr(5)}), results);
}

TEST_F(FolderSearchTest, FoldersArentFound) {
  Touch({"m/a.mp3/x"});
  EXPECT_EQ(Found({"a.mp3", "m", "m\\a.mp3", "", "m\\"}), Collection{});
}

TEST_F(FolderSearchTest, AsksTheSystemOnlyWhereTheListingIsntEnough) {
  CountingFileSystem counting(*files_);
  Collection names;
  for (int i = 0; i < 500; ++i) {
    names.push_back("song " + std::to_string(i) + ".mp3");
    Touch({"m/" + std::to_string(i % 50) + "/" + names.back()});
  }
  FolderSearch search(counting, feedback_, names);
  std::vector<FoundName> found;
  search.Walk("c:\\m", found);
  EXPECT_EQ(found.size(), 500u);
  EXPECT_EQ(counting.asked, 0);
  EXPECT_EQ(counting.reads.size(), 51u);
}

TEST_F(FolderSearchTest, ShowsEachFolder) {
  Touch({"m/a/x"});
  TouchD({"b/x"});
  Found({"a.mp3"}, {"c:\\m", "d:\\"});
  EXPECT_EQ(feedback_.activities, (Collection{"c:\\m", "c:\\m\\a", "", "", "d:\\", "d:\\b", "", ""}));
}

TEST_F(FolderSearchTest, KeepsWhatWasFoundUntilItWasStopped) {
  Touch({"a/1.mp3", "b/1.mp3", "c/1.mp3"});
  TouchD({"1.mp3"});
  feedback_.stop_at = "\\b";
  EXPECT_EQ(Found({"1.mp3"}, {"c:\\", "d:\\"}), (Collection{"c:\\a\\1.mp3", "c:\\b\\1.mp3"}));
  EXPECT_EQ(feedback_.activities, (Collection{"c:\\", "c:\\a", "", "c:\\b", ""}));
}

TEST_F(FolderSearchTest, WhatTwoWaysLeadToIsFoundUnderBothAndReadOnce) {
  Touch({"m/a.mp3", "m/sub/a.mp3", "m/sub/b.mp3"});
  drives_.LinkDrive('e', drives_.C() / "m");
  files_ = OpenFileSystem();
  CountingFileSystem counting(*files_);
  FolderSearch search(counting, feedback_, {"a.mp3", "sub\\b.mp3"});
  std::vector<FoundName> found;
  for (const char* drive : {"c:\\", "d:\\", "e:\\"}) search.Walk(drive, found);
  EXPECT_EQ(PathsOf(found), (Collection{"c:\\m\\a.mp3", "c:\\m\\sub\\b.mp3", "c:\\m\\sub\\a.mp3", "e:\\a.mp3",
                                        "e:\\sub\\b.mp3", "e:\\sub\\a.mp3"}));
  for (const auto& [folder, reads] : counting.reads) EXPECT_EQ(reads, 1) << folder;
  EXPECT_EQ(counting.reads.size(), 4u);
}

TEST_F(FolderSearchTest, AFolderAmongItsOwnParentsIsntEnteredAgain) {
  Touch({"m/a/1.mp3"});
  std::filesystem::create_directory_symlink(drives_.C() / "m", drives_.C() / "m/a/up");
  EXPECT_EQ(Found({"1.mp3"}), Collection{"c:\\m\\a\\1.mp3"});
}

TEST_F(FolderSearchTest, EndsAmongFoldersThatAllLeadToEachOther) {
  for (char from = 'a'; from < 'a' + 12; ++from) {
    Touch({std::string("m/") + from + "/1.mp3"});
    for (char to = 'a'; to < 'a' + 12; ++to)
      std::filesystem::create_directory_symlink(drives_.C() / "m" / std::string(1, to),
                                                drives_.C() / "m" / std::string(1, from) / (std::string("to ") + to));
  }
  const std::size_t once = Found({"1.mp3"}).size();
  EXPECT_GE(once, 12u);
  EXPECT_EQ(Found({"1.mp3"}, {"c:\\", "c:\\"}).size(), 2 * once);
}

TEST_F(FolderSearchTest, PassesOverWhatCanNotBeRead) {
  Touch({"locked/1.mp3", "open/1.mp3"});
  std::filesystem::permissions(drives_.C() / "locked", std::filesystem::perms(0));
  const OrdinaryUser user(drives_.Root());
  EXPECT_EQ(Found({"1.mp3"}, {"q:\\", "c:\\missing", "c:\\"}), Collection{"c:\\open\\1.mp3"});
  std::filesystem::permissions(drives_.C() / "locked", std::filesystem::perms(0700));
}

// A drive that is there for as long as `left` folders.
class VanishingDrive : public ForwardingFileSystem {
 public:
  VanishingDrive(FileSystem& files, int folders) : ForwardingFileSystem(files), left(folders) {}

  std::vector<FolderEntry> ReadFolder(const std::string& folder) const override {
    if (folder.starts_with("d:") && left-- <= 0) throw Failure("input/output error");
    return ForwardingFileSystem::ReadFolder(folder);
  }
  std::optional<FolderIdentity> IdentityOf(const std::string& folder) const override {
    if (folder.starts_with("d:") && left <= 0) return std::nullopt;
    return ForwardingFileSystem::IdentityOf(folder);
  }

  mutable int left;
};

TEST_F(FolderSearchTest, GoesOnBehindADriveThatGoesAwayInTheMiddle) {
  TouchD({"a/1.mp3", "b/1.mp3", "c/1.mp3"});
  Touch({"1.mp3"});
  VanishingDrive vanishing(*files_, 2);
  FolderSearch search(vanishing, feedback_, {"1.mp3"});
  std::vector<FoundName> found;
  search.Walk("d:\\", found);
  search.Walk("c:\\", found);
  EXPECT_EQ(PathsOf(found), (Collection{"d:\\a\\1.mp3", "c:\\1.mp3"}));
}

TEST_F(FolderSearchTest, NotesAFileThatDiffersInCaseOrAccentsOnly) {
  Touch({"m/SONG.mp3", "m/cafe\u0301.mp3", "m/\u00C9tude.mp3", "z/Song.mp3", "m/exact.mp3"});
  FolderSearch search(*files_, feedback_, {"song.mp3", "caf\u00E9.mp3", "e\u0301tude.mp3", "exact.mp3", "other.mp3"});
  std::vector<FoundName> found;
  search.Walk("c:\\", found);
  EXPECT_EQ(search.SimilarTo(0), "c:\\m\\SONG.mp3");
  EXPECT_EQ(search.SimilarTo(1), "c:\\m\\cafe\u0301.mp3");
  EXPECT_EQ(search.SimilarTo(2), "c:\\m\\\u00C9tude.mp3");
  EXPECT_EQ(search.SimilarTo(3), "");
  EXPECT_EQ(search.SimilarTo(4), "");
}

TEST_F(FolderSearchTest, ComparesTheFoldersOfATailAlike) {
  Touch({"x/Rock/A.mp3", "y/pop/a.mp3"});
  FolderSearch search(*files_, feedback_, {"rock\\a.mp3", "k\\a.mp3", "Rock\\a.mp3"});
  std::vector<FoundName> found;
  search.Walk("c:\\", found);
  EXPECT_EQ(search.SimilarTo(0), "c:\\x\\Rock\\A.mp3");
  EXPECT_EQ(search.SimilarTo(1), "");
  EXPECT_EQ(search.SimilarTo(2), "c:\\x\\Rock\\A.mp3");
}

TEST_F(FolderSearchTest, AFolderIsNoSimilarFile) {
  Touch({"SONG.mp3/x"});
  FolderSearch search(*files_, feedback_, {"song.mp3"});
  std::vector<FoundName> found;
  search.Walk("c:\\", found);
  EXPECT_EQ(search.SimilarTo(0), "");
}

}  // namespace
}  // namespace qublet

#include "playlist/paths/folder_walk.h"

#include <gtest/gtest.h>

#include <ctime>

#include "support/temporary_drives.h"

namespace qublet {
namespace {

class ActivityRecord : public Feedback {
 public:
  void ShowActivity(const std::string& text) override { shown.push_back(text); }
  Collection shown;
};

class FolderWalk : public testing::Test {
 protected:
  const TemporaryDrives drives_;
  const std::unique_ptr<FileSystem> files_ = OpenFileSystem();
  ActivityRecord activity_;

  Collection List(const std::string& folder, const std::string& filter) const {
    Collection results;
    ListFolderFiles(*files_, folder, filter, results);
    return results;
  }
  Collection Found(const std::string& folder, const Collection& filters, bool recurse = true) {
    Collection results;
    WalkFolder(*files_, activity_, folder, filters, results, recurse, true);
    return results;
  }
  void Touch(const Collection& names) const {
    for (const std::string& name : names) drives_.Write(name, "x");
  }
  void Link(const std::string& name, const std::string& target) const {
    std::filesystem::create_directory_symlink(drives_.C() / target, drives_.C() / name);
  }
};

TEST_F(FolderWalk, KnowsFourKindsOfAudioFiles) {
  EXPECT_EQ(FileFilters(), (Collection{"*.mp3", "*.wav", "*.ogg", "*.wma"}));
}

TEST_F(FolderWalk, ListsNamesInAscendingOrderIgnoringCase) {
  Touch({"m/b.mp3", "m/A.MP3", "m/c.Mp3", "m/B.mp3", "m/\u00C4.mp3", "m/a.ogg", "m/_.mp3"});
  EXPECT_EQ(List("c:\\m", "*.mp3"), (Collection{"c:\\m\\_.mp3", "c:\\m\\A.MP3", "c:\\m\\B.mp3", "c:\\m\\b.mp3",
                                                "c:\\m\\c.Mp3", "c:\\m\\\u00C4.mp3"}));
  EXPECT_EQ(List("c:\\m\\", "*.ogg"), Collection{"c:\\m\\a.ogg"});
}

TEST_F(FolderWalk, ListsFilesOnlyAndNoHiddenOnes) {
  Touch({"m/a.mp3", "m/.b.mp3", "m/folder.mp3/x", "m/noextension"});
  EXPECT_EQ(List("c:\\m", "*.mp3"), Collection{"c:\\m\\a.mp3"});
  EXPECT_EQ(List("c:\\m", "*.*"), (Collection{"c:\\m\\a.mp3", "c:\\m\\noextension"}));
}

TEST_F(FolderWalk, GivesAForeignPatternItselfOncePerMatch) {
  Touch({"m/a.txt", "m/b.txt", "m/a.mp3"});
  EXPECT_EQ(List("c:\\m", "*.txt"), (Collection{"c:\\m\\*.txt", "c:\\m\\*.txt"}));
  EXPECT_EQ(List("c:\\m", "*.MP3"), Collection{"c:\\m\\*.MP3"});
  EXPECT_EQ(List("c:\\m", "*"), (Collection{"c:\\m\\*", "c:\\m\\*", "c:\\m\\*"}));
}

TEST_F(FolderWalk, GivesAPlainNameOnceWhereItIs) {
  Touch({"m/a.mp3", "m/A.mp3", "m/.hidden", "m/folder/x"});
  EXPECT_EQ(List("c:\\m", "a.mp3"), Collection{"c:\\m\\a.mp3"});
  EXPECT_EQ(List("c:\\m", ".hidden"), Collection{"c:\\m\\.hidden"});
  EXPECT_EQ(List("c:\\m", "folder"), Collection{});
  EXPECT_EQ(List("c:\\m", "b.mp3"), Collection{});
  EXPECT_EQ(List("c:\\m", ""), Collection{});
}

TEST_F(FolderWalk, LeavesTheCaseOfAPlainNameToTheFileSystem) {
  Touch({"m/a.mp3"});
  const Collection expected = files_->Attributes("c:\\m\\A.MP3") ? Collection{"c:\\m\\A.MP3"} : Collection{};
  EXPECT_EQ(List("c:\\m", "A.MP3"), expected);
}

TEST_F(FolderWalk, FindsANameWithFoldersInFront) {
  Touch({"m/rock/a.mp3", "m/rock/b.mp3", "x.mp3"});
  EXPECT_EQ(List("c:\\m", "rock\\a.mp3"), Collection{"c:\\m\\rock\\a.mp3"});
  EXPECT_EQ(List("c:\\m", "rock\\*.mp3"), (Collection{"c:\\m\\rock\\*.mp3", "c:\\m\\rock\\*.mp3"}));
  EXPECT_EQ(List("c:\\m", "..\\x.mp3"), Collection{"c:\\m\\..\\x.mp3"});
  EXPECT_EQ(List("c:\\m", "rock\\c.mp3"), Collection{});
  EXPECT_EQ(List("c:\\m", "pop\\a.mp3"), Collection{});
  EXPECT_EQ(List("c:\\m", "pop\\*.mp3"), Collection{});
}

TEST_F(FolderWalk, AppendsToTheResults) {
  Touch({"a.mp3"});
  Collection results = {"before"};
  ListFolderFiles(*files_, "c:", "*.mp3", results);
  EXPECT_EQ(results, (Collection{"before", "c:\\a.mp3"}));
}

TEST_F(FolderWalk, PassesOverWhatCanNotBeRead) {
  Touch({"file"});
  for (const char* folder : {"c:\\missing", "c:\\file", "q:\\", ""}) {
    EXPECT_EQ(List(folder, "*.mp3"), Collection{}) << folder;
    EXPECT_EQ(Found(folder, {"*.mp3"}), Collection{}) << folder;
  }
}

TEST_F(FolderWalk, TakesFilterByFilterThenSubfolderBySubfolder) {
  Touch({"m/1.ogg", "m/2.mp3", "m/z.mp3", "m/b/1.ogg", "m/b/2.mp3", "m/A/1.mp3", "m/b/c/0.mp3", "m/a2/x.txt"});
  const Collection expected = {"c:\\m\\2.mp3",    "c:\\m\\z.mp3",    "c:\\m\\1.ogg",      "c:\\m\\A\\1.mp3",
                               "c:\\m\\b\\2.mp3", "c:\\m\\b\\1.ogg", "c:\\m\\b\\c\\0.mp3"};
  EXPECT_EQ(Found("c:\\m", FileFilters()), expected);
  EXPECT_EQ(Found("c:\\m\\", FileFilters()), expected);
}

TEST_F(FolderWalk, StaysOnTheFirstLevelWithoutRecursion) {
  Touch({"m/1.mp3", "m/b/2.mp3"});
  EXPECT_EQ(Found("c:\\m", {"*.mp3"}, false), Collection{"c:\\m\\1.mp3"});
}

TEST_F(FolderWalk, GivesAFileTwiceWhenTwoFiltersFit) {
  Touch({"m/1.mp3"});
  EXPECT_EQ(Found("c:\\m", {"*.*", "1.mp3", "*.mp3"}), (Collection{"c:\\m\\1.mp3", "c:\\m\\1.mp3", "c:\\m\\1.mp3"}));
}

TEST_F(FolderWalk, FindsOneNameInEveryFolder) {
  Touch({"m/x.exe", "m/a/b/x.exe", "m/c/y.exe"});
  EXPECT_EQ(Found("c:\\m", {"x.exe"}), (Collection{"c:\\m\\x.exe", "c:\\m\\a\\b\\x.exe"}));
  EXPECT_EQ(Found("c:\\m", {"b\\x.exe"}), Collection{"c:\\m\\a\\b\\x.exe"});
}

TEST_F(FolderWalk, LeavesHiddenFoldersOut) {
  Touch({"m/.trash/1.mp3", "m/a/2.mp3"});
  EXPECT_EQ(Found("c:\\m", {"*.mp3"}), Collection{"c:\\m\\a\\2.mp3"});
  EXPECT_EQ(Found("c:\\m\\.trash", {"*.mp3"}), Collection{"c:\\m\\.trash\\1.mp3"});
}

TEST_F(FolderWalk, ShowsEachFolderAndClearsTheTextBehindIt) {
  Touch({"m/a/x", "m/b/x"});
  Collection results;
  WalkFolder(*files_, activity_, "c:\\m", {"*.mp3"}, results, true, false);
  EXPECT_EQ(activity_.shown, (Collection{"c:\\m", "c:\\m\\a", "", "c:\\m\\b", "", ""}));
}

TEST_F(FolderWalk, IsQuietForTheFirstLevelOnly) {
  Touch({"m/a/x"});
  Collection results;
  WalkFolder(*files_, activity_, "c:\\m", {"*.mp3"}, results, true, true);
  EXPECT_EQ(activity_.shown, (Collection{"c:\\m\\a", ""}));
}

TEST_F(FolderWalk, DoesNotEnterAFolderThatIsAmongItsParents) {
  Touch({"m/a/1.mp3"});
  Link("m/a/up", "m");
  Link("m/a/self", "m/a");
  EXPECT_EQ(Found("c:\\m", {"*.mp3"}), Collection{"c:\\m\\a\\1.mp3"});
}

TEST_F(FolderWalk, EntersAFolderAgainThatIsLinkedBesideItself) {
  Touch({"m/b/1.mp3"});
  Link("m/a", "m/b");
  EXPECT_EQ(Found("c:\\m", {"*.mp3"}), (Collection{"c:\\m\\a\\1.mp3", "c:\\m\\b\\1.mp3"}));
}

TEST_F(FolderWalk, EndsAmongFoldersThatAllLeadToEachOther) {
  for (char from = 'a'; from < 'a' + 20; ++from) {
    Touch({std::string("m/") + from + "/1.mp3"});
    for (char to = 'a'; to < 'a' + 20; ++to) Link(std::string("m/") + from + "/to " + to, std::string("m/") + to);
  }
  const std::size_t found = Found("c:\\m", {"*.mp3"}).size();
  EXPECT_GE(found, 20u);
  EXPECT_LE(found, 20u * 8u);
}

TEST_F(FolderWalk, GoesAsDeepAsPathsReach) {
  std::filesystem::path place = drives_.C() / "m";
  std::filesystem::create_directory(place);
  std::string path = "c:\\m";
  for (int depth = 0; depth < 1500; ++depth) {
    place /= "x";
    path += "\\x";
    std::filesystem::create_directory(place);
  }
  std::ofstream(place / "1.mp3") << "x";
  EXPECT_EQ(Found("c:\\m", {"*.mp3"}), Collection{path + "\\1.mp3"});
}

TEST_F(FolderWalk, FindsTenThousandNamesInAThousandFiles) {
  Collection terms;
  for (int i = 0; i < 10000; ++i) {
    terms.push_back(std::string("missing ").append(std::to_string(i)).append(".mp3"));
    terms.push_back(std::string("folder\\missing ").append(std::to_string(i)).append(".mp3"));
  }
  for (int i = 0; i < 1000; ++i)
    Touch({std::string("m/").append(std::to_string(i % 100)).append("/missing ").append(std::to_string(i)) + ".mp3"});
  const std::clock_t start = std::clock();  // processor time: other work on the machine doesn't count
  EXPECT_EQ(Found("c:\\m", terms).size(), 1000u);
  EXPECT_LT(std::clock() - start, 2 * CLOCKS_PER_SEC);
}

}  // namespace
}  // namespace qublet

#include <gtest/gtest.h>

#include "support/cli_test_base.h"

namespace qublet {
namespace {

class AutoCreateCommandTest : public CliTestBase {
 protected:
  AutoCreateCommandTest() {
    Touch({"m/a/x/1.mp3", "m/a/x/2.mp3", "m/b/x/3.mp3", "m/notes.txt"});
    drives_.WriteAt(drives_.D() / "n" / "4.mp3", "abc");
    std::filesystem::create_directory(drives_.D() / "lists");
  }

  int Run(Arguments arguments) { return CliTestBase::Run("autocreate", std::move(arguments)); }
  std::string OnD(const std::string& name) const { return drives_.ReadAt(drives_.D() / name); }
};

TEST_F(AutoCreateCommandTest, WritesIntoTheFoldersUnlessToldOtherwise) {
  EXPECT_EQ(Run({"c:\\m"}), 0);
  EXPECT_EQ(Out(),
            "Searching for Root Folder...\n"
            "Root Folder found as: c:\\m\n"
            "Building a list of files to be created...\n"
            "c:\\m\\a\\x\\x-a.m3u\n"
            "c:\\m\\b\\x\\x-b.m3u\n"
            "Searching for duplicates...\n"
            "No duplicates found...\n"
            "Creating Files...\n"
            "> - c:\\m\\a\\x\\x-a.m3u\n"
            "> - c:\\m\\b\\x\\x-b.m3u\n"
            "PROCESS COMPLETE!\n"
            "2 Files Requested\n"
            "2 Files written OK\n"
            "0 Files could not be created\n");
  EXPECT_EQ(Err(), "");
  EXPECT_EQ(drives_.Read("m/a/x/x-a.m3u"), "1.mp3\r\n2.mp3\r\n");
  EXPECT_EQ(drives_.Read("m/b/x/x-b.m3u"), "3.mp3\r\n");
  EXPECT_EQ(Run({"--in", "base", "c:\\m"}), 0);
}

TEST_F(AutoCreateCommandTest, WritesIntoTheRootOrBoth) {
  EXPECT_EQ(Run({"--in", "root", "c:\\m"}), 0);
  EXPECT_EQ(drives_.Read("m/x-a.m3u"), "a\\x\\1.mp3\r\na\\x\\2.mp3\r\n");
  EXPECT_EQ(drives_.Read("m/a/x/x-a.m3u"), "");
  EXPECT_EQ(Run({"--in", "both", "c:\\m"}), 0);
  EXPECT_EQ(drives_.Read("m/x-b.m3u"), "b\\x\\3.mp3\r\nb\\x\\3.mp3\r\n");
  EXPECT_EQ(drives_.Read("m/b/x/x-b.m3u"), "3.mp3\r\n");
}

TEST_F(AutoCreateCommandTest, WritesFullPathsIntoAFolder) {
  for (const char* folder : {"d:\\lists", "d:\\lists\\"}) {
    EXPECT_EQ(Run({"--to", folder, "c:\\m"}), 0);
    EXPECT_EQ(Out(),
              "Building a list of files to be created...\n"
              "d:\\lists\\x-a.m3u\n"
              "d:\\lists\\x-b.m3u\n"
              "Searching for duplicates...\n"
              "No duplicates found...\n"
              "Creating Files...\n"
              "> - d:\\lists\\x-a.m3u\n"
              "> - d:\\lists\\x-b.m3u\n"
              "PROCESS COMPLETE!\n"
              "2 Files Requested\n"
              "2 Files written OK\n"
              "0 Files could not be created\n");
    EXPECT_EQ(OnD("lists/x-a.m3u"), "c:\\m\\a\\x\\1.mp3\r\nc:\\m\\a\\x\\2.mp3\r\n");
    std::filesystem::remove(drives_.D() / "lists" / "x-a.m3u");
  }
  EXPECT_EQ(Run({"--to", "d:\\", "c:\\m"}), 0);
  EXPECT_EQ(OnD("x-b.m3u"), "c:\\m\\b\\x\\3.mp3\r\n");
}

TEST_F(AutoCreateCommandTest, TakesAFolderAsTheSystemNamesIt) {
  EXPECT_EQ(Run({"--to", (drives_.D() / "lists").string() + "/", "c:\\m"}), 0) << Err();
  EXPECT_EQ(OnD("lists/x-b.m3u"), "c:\\m\\b\\x\\3.mp3\r\n");
}

TEST_F(AutoCreateCommandTest, WantsAFolderThatIsThere) {
  for (const char* folder : {"d:\\none", "d:\\n\\4.mp3"}) {
    EXPECT_EQ(Run({"--to", folder, "c:\\m"}), 1);
    EXPECT_EQ(Err(), std::string("qublet: ") + folder + ": no such folder\n");
    EXPECT_EQ(Out(), "");
  }
  EXPECT_EQ(Run({"--to", "", "c:\\m"}), 1);
}

TEST_F(AutoCreateCommandTest, NamesTheFilesByAFormat) {
  EXPECT_EQ(Run({"--format", "list of %2 %DATE", "c:\\m\\a"}), 0);
  EXPECT_EQ(drives_.Read("m/a/x/list of a 03-09-2004.m3u"), "1.mp3\r\n2.mp3\r\n");
  EXPECT_EQ(Run({"--format", "", "c:\\m\\b"}), 0);
  EXPECT_EQ(drives_.Read("m/b/x/-x-b-m-c------.m3u"), "3.mp3\r\n");
}

TEST_F(AutoCreateCommandTest, ADryRunWritesNothing) {
  EXPECT_EQ(Run({"--dry-run", "--in", "root", "c:\\m"}), 0);
  EXPECT_EQ(Out(),
            "Searching for Root Folder...\n"
            "Root Folder found as: c:\\m\n"
            "Building a list of files to be created...\n"
            "c:\\m\\x-a.m3u\n"
            "c:\\m\\x-b.m3u\n"
            "Searching for duplicates...\n"
            "No duplicates found...\n");
  EXPECT_EQ(drives_.Read("m/x-a.m3u"), "");
}

TEST_F(AutoCreateCommandTest, DuplicatesEndItWithAndWithoutADryRun) {
  for (Arguments arguments : {Arguments{"--format", "%1", "--in", "root", "c:\\m"},
                              {"--format", "%1", "--in", "root", "--dry-run", "c:\\m"}}) {
    EXPECT_EQ(Run(arguments), 1);
    EXPECT_EQ(Out(),
              "Searching for Root Folder...\n"
              "Root Folder found as: c:\\m\n"
              "Building a list of files to be created...\n"
              "c:\\m\\x.m3u\n"
              "c:\\m\\x.m3u\n"
              "Searching for duplicates...\n"
              "Duplicate Filenames found...\n"
              "PROCESS FAILED!\n"
              "You need to check the filenaming format\n"
              "to make sure it does not result in\n"
              "duplicate files being created. Try\n"
              "adding lower-level folders to the\n"
              "name. E.G %1. Click Next> to continue.\n");
    EXPECT_EQ(Err(), "");
  }
  EXPECT_EQ(drives_.Read("m/x.m3u"), "");
}

TEST_F(AutoCreateCommandTest, EveryFolderCountsAlsoOneThatComesAgain) {
  drives_.Write("list.m3u", "m\\a\\x\\1.mp3\r\nm\\b\\x\\3.mp3\r\nm\\a\\x\\2.mp3\r\n");
  EXPECT_EQ(Run({"c:\\list.m3u"}), 1);
  EXPECT_TRUE(Out().ends_with("name. E.G %1. Click Next> to continue.\n"));
}

TEST_F(AutoCreateCommandTest, ItemsOnTwoDrivesHaveNoRoot) {
  EXPECT_EQ(Run({"--in", "root", "c:\\m", "d:\\n"}), 0);
  EXPECT_TRUE(
      Out().starts_with("Searching for Root Folder...\n"
                        "Could not parse Root Folder, Changing mode...\n"
                        "Set mode: Create M3Us in Base folder only...\n"));
  EXPECT_EQ(OnD("n/n-d.m3u"), "4.mp3\r\n");
}

TEST_F(AutoCreateCommandTest, SkipsAFolderThatHasGoneWithoutAWord) {
  drives_.Write("list.m3u", "gone\\9.mp3\r\nm\\b\\x\\3.mp3\r\n");
  EXPECT_EQ(Run({"c:\\list.m3u"}), 0);
  EXPECT_EQ(Err(), "");
  EXPECT_EQ(drives_.Read("m/b/x/x-b.m3u"), "3.mp3\r\n");
}

TEST_F(AutoCreateCommandTest, SaysThatNoFolderIsThere) {
  drives_.Write("list.m3u", "gone\\9.mp3\r\n");
  EXPECT_EQ(Run({"c:\\list.m3u"}), 1);
  EXPECT_EQ(Err(), "qublet: This Wizard can only work with items that are pointed to correctly in the Playlist...\n");
  EXPECT_EQ(Out(), "");
}

TEST_F(AutoCreateCommandTest, AFileThatCanNotBeWrittenIsAnErrorAndTheOthersAreWritten) {
  std::filesystem::create_directory(drives_.C() / "m" / "a" / "x" / "x-a.m3u");
  EXPECT_EQ(Run({"c:\\m"}), 1);
  EXPECT_TRUE(
      Out().ends_with("X - c:\\m\\a\\x\\x-a.m3u\n"
                      "> - c:\\m\\b\\x\\x-b.m3u\n"
                      "PROCESS COMPLETE!\n"
                      "2 Files Requested\n"
                      "1 Files written OK\n"
                      "1 Files could not be created\n"));
  EXPECT_EQ(drives_.Read("m/b/x/x-b.m3u"), "3.mp3\r\n");
}

TEST_F(AutoCreateCommandTest, WritesNothingWhereAPathIsNotThere) {
  EXPECT_EQ(Run({"c:\\m", "c:\\none"}), 1);
  EXPECT_EQ(Err(), "qublet: c:\\none: no such file or folder\n");
  EXPECT_EQ(Out(), "");
  EXPECT_EQ(drives_.Read("m/a/x/x-a.m3u"), "");
}

TEST_F(AutoCreateCommandTest, ShowsItsUseForAnythingElse) {
  for (const Arguments& arguments : std::vector<Arguments>{{},
                                                           {"--odd", "c:\\m"},
                                                           {"--in", "c:\\m"},
                                                           {"--in", "top", "c:\\m"},
                                                           {"--in", "base"},
                                                           {"--in", "base", "--in", "root", "c:\\m"},
                                                           {"--in", "base", "--to", "d:\\lists", "c:\\m"},
                                                           {"--to"},
                                                           {"--to", "d:\\lists"},
                                                           {"--format"},
                                                           {"--format", "%1"}}) {
    EXPECT_EQ(Run(arguments), 2);
    EXPECT_TRUE(Err().starts_with("qublet: autocreate: ")) << Err();
    EXPECT_EQ(Out(), "");
  }
}

}  // namespace
}  // namespace qublet

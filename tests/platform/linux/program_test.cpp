#include "platform/program.h"

#include <gtest/gtest.h>

#include "support/file_system_test_base.h"
#include "support/ordinary_user.h"

namespace qublet {
namespace {

namespace fs = std::filesystem;

class ProgramTest : public FileSystemTestBase {
 protected:
  static fs::path Executable() { return fs::canonical("/proc/self/exe"); }

  // No drive leads to the executable any more, so nothing can be made beside it.
  void HideExecutable() {
    fs::create_directory_symlink(drives_.D(), drives_.Root() / "dosdevices/z:");
    files_ = OpenFileSystem();
  }
};

TEST_F(ProgramTest, IsOnTheServerLine) {
  EXPECT_EQ(GetPlatformId(), 3);
}

TEST_F(ProgramTest, KnowsItsOwnExecutable) {
  EXPECT_EQ(ExecutablePath(*files_), files_->FromNative(Executable().string()));
  EXPECT_EQ(files_->FileLength(ExecutablePath(*files_)), fs::file_size(Executable()));
}

TEST_F(ProgramTest, KeepsItsFilesBesideTheExecutableWhereItMay) {
  EXPECT_EQ(ProgramFolder(*files_), files_->FromNative(Executable().parent_path().string()));
}

TEST_F(ProgramTest, KeepsItsFilesInTheUsersDataFolderWhereTheExecutableStandsInASystemFolder) {
  const OrdinaryUser user(drives_.Root());
  if (!user.Changed()) GTEST_SKIP() << "only the superuser can try it: who built the program may write beside it";
  EXPECT_EQ(ProgramFolder(*files_), files_->FromNative((drives_.Root() / "data/velmora").string()));
  EXPECT_TRUE(fs::is_directory(drives_.Root() / "data/velmora"));
}

TEST_F(ProgramTest, KeepsItsFilesInTheUsersDataFolderWhereNoDriveLeadsToTheExecutable) {
  setenv("XDG_DATA_HOME", (drives_.C() / "data").c_str(), 1);
  HideExecutable();
  EXPECT_EQ(ProgramFolder(*files_), "c:\\data\\velmora");
  EXPECT_TRUE(fs::is_directory(drives_.C() / "data/velmora"));
}

TEST_F(ProgramTest, FindsTheUsersDataFolderInTheHomeFolderUnlessTold) {
  unsetenv("XDG_DATA_HOME");
  setenv("HOME", (drives_.C() / "home").c_str(), 1);
  HideExecutable();
  EXPECT_EQ(ProgramFolder(*files_), "c:\\home\\.local\\share\\velmora");
}

TEST_F(ProgramTest, FailsWhereNoFolderCanBeMade) {
  drives_.Write("file", "x");
  setenv("XDG_DATA_HOME", (drives_.C() / "file").c_str(), 1);
  HideExecutable();
  EXPECT_THROW(ProgramFolder(*files_), Failure);
}

TEST_F(ProgramTest, LooksForItsCompanionsBesideTheExecutableAndInTheInstalledData) {
  const fs::path beside = Executable().parent_path();
  EXPECT_EQ(CompanionFolders(*files_), (Names{files_->FromNative(beside.string()),
                                              files_->FromNative((beside.parent_path() / "share/qublet").string())}));
}

TEST_F(ProgramTest, HasNoPlacesForCompanionsWhereNoDriveLeadsToTheExecutable) {
  HideExecutable();
  EXPECT_EQ(CompanionFolders(*files_), Names());
}

TEST_F(ProgramTest, TakesACompanionFromTheFirstFolderThatHasIt) {
  drives_.Write("first/tips", "1");
  drives_.Write("second/tips", "2");
  drives_.Write("second/help/index.html", "2");
  fs::create_directory(drives_.C() / "first/help.txt");
  drives_.Write("second/help.txt", "2");
  const Names folders{"", "c:\\gone", "c:\\first", "c:\\second"};
  EXPECT_EQ(FindCompanion(*files_, folders, "tips"), "c:\\first\\tips");
  EXPECT_EQ(FindCompanion(*files_, folders, "help\\index.html"), "c:\\second\\help\\index.html");
  EXPECT_EQ(FindCompanion(*files_, folders, "help.txt"), "c:\\second\\help.txt");
  EXPECT_EQ(FindCompanion(*files_, folders, "ReadMe.txt"), "");
}

}  // namespace
}  // namespace qublet

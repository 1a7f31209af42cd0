#include <unistd.h>

#include "platform/linux/linux_file_system_test_base.h"
#include "support/ordinary_user.h"

namespace qublet {
namespace {

namespace fs = std::filesystem;

TEST_F(LinuxFileSystemTest, RenamesALinkAndNotWhatItLeadsTo) {
  drives_.Write("a.mp3", "a");
  Link("a.mp3", "link.mp3");
  Link("nowhere", "dead.mp3");
  files_->Rename("c:\\link.mp3", "c:\\other.mp3");
  EXPECT_TRUE(fs::is_symlink(drives_.C() / "other.mp3"));
  EXPECT_EQ(drives_.Read("a.mp3"), "a");
  EXPECT_THROW(files_->Rename("c:\\a.mp3", "c:\\dead.mp3"), Failure);
  EXPECT_TRUE(fs::is_symlink(drives_.C() / "dead.mp3"));
}

TEST_F(LinuxFileSystemTest, DoesNotTakeTwoLinksToOneFileForAChangeOfCase) {
  drives_.Write("a.mp3", "a");
  fs::create_hard_link(drives_.C() / "a.mp3", drives_.C() / "A.mp3");
  EXPECT_THROW(files_->Rename("c:\\a.mp3", "c:\\A.mp3"), Failure);
  EXPECT_EQ(NamesIn("c:\\"), (Names{"A.mp3", "a.mp3"}));
}

TEST_F(LinuxFileSystemTest, DeletesALinkAndNotWhatItLeadsTo) {
  drives_.Write("a.mp3", "a");
  Link("a.mp3", "link.mp3");
  files_->DeleteFile("c:\\link.mp3");
  EXPECT_EQ(NamesIn("c:\\"), Names{"a.mp3"});
}

// A drive e: on the file system of shared memory, which is never that of temporary files where this test counts.
class MoveAcrossTest : public LinuxFileSystemTest {
 protected:
  void SetUp() override {
    std::string pattern = "/dev/shm/qublet-test-XXXXXX";
    ASSERT_NE(mkdtemp(pattern.data()), nullptr);
    other_ = pattern;
    struct stat here {};
    struct stat there {};
    stat(drives_.C().c_str(), &here);
    stat(other_.c_str(), &there);
    if (here.st_dev == there.st_dev) GTEST_SKIP() << "temporary files stand in shared memory";
    fs::create_directory_symlink(other_, drives_.Root() / "dosdevices/e:");
    files_ = OpenFileSystem();
  }
  void TearDown() override { fs::remove_all(other_); }

  fs::path other_;
};

TEST_F(MoveAcrossTest, CopiesAndDeletesAFile) {
  drives_.Write("a.mp3", LongContent());
  SetMode("a.mp3", 0440);
  const auto changed = fs::last_write_time(drives_.C() / "a.mp3");
  files_->Rename("c:\\a.mp3", "e:\\b.mp3");
  EXPECT_EQ(NamesIn("c:\\"), Names{});
  EXPECT_EQ(NamesIn("e:\\"), Names{"b.mp3"});
  EXPECT_EQ(drives_.ReadAt(other_ / "b.mp3"), LongContent());
  EXPECT_EQ(fs::last_write_time(other_ / "b.mp3"), changed);
  EXPECT_EQ(fs::status(other_ / "b.mp3").permissions(), fs::perms(0440));
}

TEST_F(MoveAcrossTest, LeavesTheRightsOfAnOwnerBehind) {
  drives_.Write("a.mp3", "a");
  SetMode("a.mp3", 06755);
  files_->Rename("c:\\a.mp3", "e:\\b.mp3");
  EXPECT_EQ(fs::status(other_ / "b.mp3").permissions(), fs::perms(0755));
}

TEST_F(MoveAcrossTest, NeverReplacesATarget) {
  drives_.Write("a.mp3", "a");
  drives_.WriteAt(other_ / "b.mp3", "b");
  fs::create_symlink("nowhere", other_ / "dead.mp3");
  EXPECT_THROW(files_->Rename("c:\\a.mp3", "e:\\b.mp3"), Failure);
  EXPECT_THROW(files_->Rename("c:\\a.mp3", "e:\\dead.mp3"), Failure);
  EXPECT_EQ(drives_.Read("a.mp3"), "a");
  EXPECT_EQ(drives_.ReadAt(other_ / "b.mp3"), "b");
  EXPECT_EQ(NamesIn("e:\\"), Names{"b.mp3"});
}

TEST_F(MoveAcrossTest, LeavesFoldersWhereTheyAre) {
  drives_.Write("music/a.mp3", "a");
  EXPECT_THROW(files_->Rename("c:\\music", "e:\\music"), Failure);
  EXPECT_EQ(NamesIn("e:\\"), Names{});
  EXPECT_EQ(drives_.Read("music/a.mp3"), "a");
}

TEST_F(MoveAcrossTest, MovesWhatALinkLeadsTo) {
  drives_.Write("a.mp3", "a");
  Link("a.mp3", "link.mp3");
  files_->Rename("c:\\link.mp3", "e:\\b.mp3");
  EXPECT_EQ(drives_.ReadAt(other_ / "b.mp3"), "a");
  EXPECT_EQ(NamesIn("c:\\"), Names{"a.mp3"});
}

TEST_F(MoveAcrossTest, KeepsTheSourceThatCannotBeDeleted) {
  drives_.Write("music/a.mp3", "a");
  fs::permissions(other_, fs::perms::all);
  const OrdinaryUser user(drives_.Root());
  SetMode("music", 0555);
  EXPECT_THROW(files_->Rename("c:\\music\\a.mp3", "e:\\b.mp3"), Failure);
  SetMode("music", 0755);
  EXPECT_EQ(drives_.Read("music/a.mp3"), "a");
  EXPECT_EQ(NamesIn("e:\\"), Names{});
}

TEST_F(MoveAcrossTest, CopiesToAnotherFileSystem) {
  drives_.Write("a.mp3", LongContent());
  files_->CopyFile("c:\\a.mp3", "e:\\a.mp3");
  EXPECT_EQ(drives_.ReadAt(other_ / "a.mp3"), LongContent());
}

}  // namespace
}  // namespace qublet

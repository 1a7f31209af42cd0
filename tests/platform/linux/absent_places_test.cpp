#include "platform/linux/absent_places.h"

#include <gtest/gtest.h>

#include "platform/linux/linux_file_system_test_base.h"

namespace qublet {
namespace {

class UnmountedPlacesTest : public LinuxFileSystemTest {
 protected:
  // A line for a place below c:.
  std::string Fstab(const std::string& name) const {
    return "server:/share " + (drives_.C() / name).string() + " nfs noauto,ro 0 0\n";
  }
  std::string Mounted(const std::string& name, const std::string& kind = "nfs") const {
    return "36 35 98:0 / " + (drives_.C() / name).string() + " rw,noatime master:1 - " + kind + " server:/share rw\n";
  }
  std::string Of(const std::string& path) const { return UnmountedPlaces(*files_, fstab_, mountinfo_).Of(path); }
  std::string Native(const std::string& name) const { return (drives_.C() / name).string(); }

  std::string fstab_;
  std::string mountinfo_;
};

TEST_F(UnmountedPlacesTest, NamesADriveThatNothingLeadsTo) {
  EXPECT_EQ(Of("e:\\music\\a.mp3"), "e:");
  EXPECT_EQ(Of("E:\\a.mp3"), "e:");
  EXPECT_EQ(Of("c:\\gone\\a.mp3"), "");
}

TEST_F(UnmountedPlacesTest, NamesADriveThatHasGoneSinceTheStart) {
  EXPECT_EQ(Of("d:\\a.mp3"), "");
  std::filesystem::rename(drives_.D(), drives_.Root() / "away");
  EXPECT_EQ(Of("d:\\a.mp3"), "d:");
  std::filesystem::rename(drives_.Root() / "away", drives_.D());
  EXPECT_EQ(Of("d:\\a.mp3"), "");
}

TEST_F(UnmountedPlacesTest, NamesAMountPointThatNothingIsMountedOn) {
  fstab_ = Fstab("mnt/nas");
  EXPECT_EQ(Of("c:\\mnt\\nas\\music\\a.mp3"), Native("mnt/nas"));
  EXPECT_EQ(Of("c:\\mnt\\nas\\a.mp3"), Native("mnt/nas"));
  EXPECT_EQ(Of("c:\\mnt\\nas2\\a.mp3"), "");
  EXPECT_EQ(Of("c:\\mnt\\a.mp3"), "");
  mountinfo_ = Mounted("mnt/nas");
  EXPECT_EQ(Of("c:\\mnt\\nas\\music\\a.mp3"), "");
}

TEST_F(UnmountedPlacesTest, WhatIsMountedAtItsFirstUseIsntThereBefore) {
  fstab_ = Fstab("mnt/nas");
  mountinfo_ = Mounted("mnt/nas", "autofs");
  EXPECT_EQ(Of("c:\\mnt\\nas\\a.mp3"), Native("mnt/nas"));
  mountinfo_ += Mounted("mnt/nas", "nfs4");
  EXPECT_EQ(Of("c:\\mnt\\nas\\a.mp3"), "");
}

TEST_F(UnmountedPlacesTest, TakesTheDeepestPlace) {
  fstab_ = Fstab("mnt") + Fstab("mnt/nas");
  EXPECT_EQ(Of("c:\\mnt\\nas\\a.mp3"), Native("mnt/nas"));
  EXPECT_EQ(Of("c:\\mnt\\b\\a.mp3"), Native("mnt"));
}

TEST_F(UnmountedPlacesTest, ReadsBlanksInPlacesAndPassesOverEverythingElse) {
  const std::string escaped = Native("My\\040Disk");
  fstab_ = "# /dev/sdb1 " + Native("comment") + " ext4\n\n/dev/sda2 none swap sw 0 0\n/dev/sda1 / ext4\nproc\n" +
           "LABEL=x\t" + escaped + "/\tvfat\tdefaults";
  EXPECT_EQ(Of("c:\\My Disk\\a.mp3"), Native("My Disk"));
  EXPECT_EQ(Of("c:\\comment\\a.mp3"), "");
  EXPECT_EQ(Of("z:\\a.mp3"), "");
  mountinfo_ = "36 35 98:0 / " + escaped + " rw - vfat /dev/sdb1 rw\nnonsense\n";
  EXPECT_EQ(Of("c:\\My Disk\\a.mp3"), "");
}

TEST_F(UnmountedPlacesTest, FollowsLinksThatLeadThere) {
  std::filesystem::create_directories(drives_.C() / "mnt/nas");
  Link(drives_.C() / "mnt/nas/music", "Music");
  Link(drives_.C() / "Music", "Tunes");
  Link(drives_.C() / "mnt", "media");
  fstab_ = Fstab("media/nas");
  for (const char* path : {"c:\\Music\\x\\a.mp3", "c:\\Tunes\\a.mp3", "c:\\mnt\\nas\\a.mp3", "c:\\media\\nas\\a.mp3"})
    EXPECT_EQ(Of(path), Native("mnt/nas")) << path;
  mountinfo_ = Mounted("mnt/nas");
  EXPECT_EQ(Of("c:\\Tunes\\a.mp3"), "");
}

TEST_F(UnmountedPlacesTest, EndsAtLinksThatLeadInACircle) {
  Link(drives_.C() / "b", "a");
  Link(drives_.C() / "a", "b");
  fstab_ = Fstab("mnt");
  EXPECT_EQ(Of("c:\\a\\x.mp3"), "");
}

TEST_F(UnmountedPlacesTest, OtherPathsLieOnNoPlace) {
  fstab_ = Fstab("mnt");
  for (const char* path : {"", "mnt\\a.mp3", "a.mp3", "\\\\server\\share\\a.mp3", ":\\a.mp3"})
    EXPECT_EQ(Of(path), "") << path;
  EXPECT_EQ(Of(std::string("c:\\mnt\\a\0.mp3", 13)), "");
}

TEST_F(UnmountedPlacesTest, ThisSystemSaysWhatItHas) {
  const auto places = files_->FindAbsentPlaces();
  EXPECT_EQ(places->Of("e:\\a.mp3"), "e:");
  EXPECT_EQ(places->Of("c:\\a.mp3"), "");
}

}  // namespace
}  // namespace qublet

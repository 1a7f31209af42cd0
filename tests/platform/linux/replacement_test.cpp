#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>

#include "platform/linux/linux_file_system_test_base.h"
#include "support/ordinary_user.h"

namespace qublet {
namespace {

namespace fs = std::filesystem;

// --- what a replacement keeps ---

TEST_F(LinuxFileSystemTest, ReplacesTheFileThatALinkLeadsTo) {
  drives_.Write("music/a.mp3", "old");
  Link("music/a.mp3", "relative.mp3");
  Link(drives_.C() / "relative.mp3", "absolute.mp3");
  Replace("c:\\absolute.mp3", "new");
  EXPECT_EQ(drives_.Read("music/a.mp3"), "new");
  EXPECT_TRUE(fs::is_symlink(drives_.C() / "absolute.mp3"));
  EXPECT_TRUE(fs::is_symlink(drives_.C() / "relative.mp3"));
  EXPECT_EQ(NamesIn("c:\\music"), Names{"a.mp3"});
}

TEST_F(LinuxFileSystemTest, MakesTheFileWhereADeadLinkPoints) {
  fs::create_directory(drives_.C() / "music");
  Link("music/new.m3u", "link.m3u");
  Replace("c:\\link.m3u", "text");
  EXPECT_EQ(drives_.Read("music/new.m3u"), "text");
  EXPECT_TRUE(fs::is_symlink(drives_.C() / "link.m3u"));
  Link("none/new.m3u", "dead.m3u");
  EXPECT_THROW(files_->BeginReplacement("c:\\dead.m3u"), Failure);
  Link("loop", "loop");
  EXPECT_THROW(files_->BeginReplacement("c:\\loop"), Failure);
}

TEST_F(LinuxFileSystemTest, KeepsTheModeOfAReplacedFile) {
  drives_.Write("a.mp3", "old");
  for (const mode_t mode : {0600u, 0644u, 0755u, 0664u, 0200u}) {
    SetMode("a.mp3", mode);
    Replace("c:\\a.mp3", "new");
    EXPECT_EQ(ModeOf("a.mp3"), mode);
  }
}

TEST_F(LinuxFileSystemTest, GivesANewFileTheUsualMode) {
  const mode_t before = umask(027);
  Replace("c:\\new.m3u", "text");
  umask(before);
  EXPECT_EQ(ModeOf("new.m3u"), 0640u);
}

TEST_F(LinuxFileSystemTest, NeverShowsAPrivateFileWhileItIsReplaced) {
  drives_.Write("a.mp3", "old");
  SetMode("a.mp3", 0600);
  const auto next = files_->BeginReplacement("c:\\a.mp3");
  for (const auto& entry : fs::directory_iterator(drives_.C())) {
    EXPECT_EQ(entry.status().permissions() & fs::perms::mask, fs::perms::owner_read | fs::perms::owner_write);
  }
}

TEST_F(LinuxFileSystemTest, KeepsTheExtendedAttributesOfAReplacedFile) {
  if (!KeepsExtendedAttributes()) GTEST_SKIP() << "not on this file system";
  drives_.Write("a.mp3", "old");
  SetAttributeOf("a.mp3", "user.rating", "5");
  SetAttributeOf("a.mp3", "user.empty", "");
  Replace("c:\\a.mp3", "new");
  EXPECT_EQ(AttributeOf("a.mp3", "user.rating"), "5");
  EXPECT_EQ(AttributeOf("a.mp3", "user.empty"), "");
}

// An access list as the kernel keeps it: the owner rw, user 1234 `named`, the group r, the rest nothing.
std::string AccessList(char named) {
  const std::string none("\xFF\xFF\xFF\xFF", 4);
  const auto entry = [&](char tag, char rights, const std::string& who) {
    return std::string{tag, 0, rights, 0} + who;
  };
  return std::string("\2\0\0\0", 4) + entry(1, 6, none) + entry(2, named, std::string("\xD2\x04\0\0", 4)) +
         entry(4, 4, none) + entry(16, 6, none) + entry(32, 0, none);
}

TEST_F(LinuxFileSystemTest, KeepsTheAccessListOfAReplacedFile) {
  if (!KeepsExtendedAttributes()) GTEST_SKIP() << "not on this file system";
  drives_.Write("a.mp3", "old");
  SetAttributeOf("a.mp3", "system.posix_acl_access", AccessList(6));
  Replace("c:\\a.mp3", "new");
  EXPECT_EQ(AttributeOf("a.mp3", "system.posix_acl_access"), AccessList(6));
  EXPECT_EQ(ModeOf("a.mp3"), 0660u);
}

TEST_F(LinuxFileSystemTest, GivesAReplacedFileNoAccessListThatItDidNotHave) {
  if (!KeepsExtendedAttributes()) GTEST_SKIP() << "not on this file system";
  drives_.Write("music/a.mp3", "old");
  SetMode("music/a.mp3", 0644);
  SetAttributeOf("music", "system.posix_acl_default", AccessList(6));
  Replace("c:\\music\\a.mp3", "new");
  EXPECT_EQ(AttributeOf("music/a.mp3", "system.posix_acl_access"), "none");
  EXPECT_EQ(ModeOf("music/a.mp3"), 0644u);
}

TEST_F(LinuxFileSystemTest, KeepsTheOwnerOfAReplacedFileAsFarAsTheUserMay) {
  if (geteuid() != 0) GTEST_SKIP() << "only the superuser can make a file of another user";
  drives_.Write("a.mp3", "old");
  ASSERT_EQ(chown((drives_.C() / "a.mp3").c_str(), 1234, 4321), 0);
  SetMode("a.mp3", 0664);
  Replace("c:\\a.mp3", "new");
  EXPECT_EQ(StatusOf("a.mp3").st_uid, 1234u);
  EXPECT_EQ(StatusOf("a.mp3").st_gid, 4321u);
  EXPECT_EQ(ModeOf("a.mp3"), 0664u);

  const OrdinaryUser user(drives_.Root());
  ASSERT_EQ(seteuid(0), 0);
  ASSERT_EQ(chown((drives_.C() / "a.mp3").c_str(), 1234, 4321), 0);
  SetMode("a.mp3", 0666);
  SetMode("a.mp3", 0662);
  ASSERT_EQ(seteuid(65534), 0);
  Replace("c:\\a.mp3", "third");
  EXPECT_EQ(drives_.Read("a.mp3"), "third");
  EXPECT_EQ(StatusOf("a.mp3").st_uid, 65534u);
  EXPECT_EQ(ModeOf("a.mp3"), 0622u) << "the new group has no more rights than others";
}

TEST_F(LinuxFileSystemTest, GivesACopyModeAttributesAndTimeOfTheSource) {
  if (!KeepsExtendedAttributes()) GTEST_SKIP() << "not on this file system";
  drives_.Write("a.mp3", "new");
  drives_.Write("b.mp3", "old");
  SetMode("a.mp3", 0640);
  SetAttributeOf("a.mp3", "user.rating", "5");
  const timespec times[2] = {{1000000000, 1}, {1000000000, 123456789}};
  ASSERT_EQ(utimensat(AT_FDCWD, (drives_.C() / "a.mp3").c_str(), times, 0), 0);
  files_->CopyFile("c:\\a.mp3", "c:\\b.mp3");
  EXPECT_EQ(ModeOf("b.mp3"), 0640u);
  EXPECT_EQ(AttributeOf("b.mp3", "user.rating"), "5");
  EXPECT_EQ(StatusOf("b.mp3").st_mtim.tv_sec, 1000000000);
  EXPECT_EQ(StatusOf("b.mp3").st_mtim.tv_nsec, 123456789);
}

// --- full disks ---

TEST_F(LinuxFileSystemTest, LeavesTheOldFileWhereThereIsNoRoomForTheNew) {
  drives_.Write("a.mp3", "old");
  drives_.Write("big.mp3", LongContent());
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  rlimit small = before;
  small.rlim_cur = 100000;
  setrlimit(RLIMIT_FSIZE, &small);
  const bool replaced = Guarded([&] { Replace("c:\\a.mp3", LongContent()); });
  const bool copied = Guarded([&] { files_->CopyFile("c:\\big.mp3", "c:\\a.mp3"); });
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  EXPECT_FALSE(replaced);
  EXPECT_FALSE(copied);
  EXPECT_EQ(drives_.Read("a.mp3"), "old");
  EXPECT_EQ(NamesIn("c:\\"), (Names{"a.mp3", "big.mp3"}));
}

}  // namespace
}  // namespace qublet

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <csignal>

#include "support/file_system_test_base.h"
#include "support/ordinary_user.h"

namespace qublet {
namespace {

namespace fs = std::filesystem;

class LinuxFileSystemTest : public FileSystemTestBase {
 protected:
  void Link(const fs::path& target, const std::string& name) const { fs::create_symlink(target, drives_.C() / name); }
  struct stat StatusOf(const std::string& name) const {
    struct stat status {};
    EXPECT_EQ(stat((drives_.C() / name).c_str(), &status), 0);
    return status;
  }
  mode_t ModeOf(const std::string& name) const { return StatusOf(name).st_mode & 07777; }
  // Whether the file system of temporary files can do it.
  bool KeepsExtendedAttributes() const { return setxattr(drives_.C().c_str(), "user.probe", "1", 1, 0) == 0; }
  void SetMode(const std::string& name, mode_t mode) const {
    ASSERT_EQ(chmod((drives_.C() / name).c_str(), mode), 0);
  }
  std::string AttributeOf(const std::string& name, const char* attribute) const {
    char value[256];
    const ssize_t size = getxattr((drives_.C() / name).c_str(), attribute, value, sizeof value);
    return size < 0 ? "none" : std::string(value, static_cast<std::size_t>(size));
  }
  void SetAttributeOf(const std::string& name, const char* attribute, const std::string& value) const {
    ASSERT_EQ(setxattr((drives_.C() / name).c_str(), attribute, value.data(), value.size(), 0), 0);
  }
};

// --- names ---

TEST_F(LinuxFileSystemTest, ReachesEveryNameThatAFolderCanHold) {
  const Names natives = {"AC\\DC.mp3", "12:30.mp3", "line\nbreak.mp3", "latin\xE9.mp3", "\xF0\x9F", "\uF05C.mp3",
                         " ",          "*?"};
  for (const std::string& native : natives) drives_.WriteAt(drives_.C() / native, native);
  std::vector<std::string> contents;
  for (const FolderEntry& entry : files_->ReadFolder("c:\\")) {
    const auto file = files_->OpenForReading("c:\\" + entry.name);
    std::vector<std::uint8_t> buffer(static_cast<std::size_t>(file->Size()));
    file->ReadAt(0, buffer);
    contents.emplace_back(buffer.begin(), buffer.end());
    EXPECT_EQ(files_->FromNative((drives_.C() / contents.back()).string()), "c:\\" + entry.name);
  }
  EXPECT_TRUE(std::is_permutation(natives.begin(), natives.end(), contents.begin(), contents.end()));
}

TEST_F(LinuxFileSystemTest, HidesNamesThatBeginWithADot) {
  drives_.Write(".hidden/.a.mp3", "a");
  EXPECT_EQ(files_->Attributes("c:\\.hidden"), kFolder | kHidden);
  EXPECT_EQ(files_->Attributes("c:\\.hidden\\"), kFolder | kHidden);
  EXPECT_EQ(files_->Attributes("c:\\.hidden\\.a.mp3"), kArchive | kHidden);
  EXPECT_EQ(files_->Attributes("c:\\.hidden\\."), kFolder);
  EXPECT_EQ(files_->Attributes("c:\\.hidden\\.."), kFolder);
  const auto entries = files_->ReadFolder("c:\\");
  ASSERT_EQ(entries.size(), 1u);
  EXPECT_TRUE(entries[0].hidden);
}

TEST_F(LinuxFileSystemTest, FollowsLinksInAListingAndLeavesDeadOnesOut) {
  drives_.Write("music/a.mp3", "a");
  Link("music", "folder");
  Link("music/a.mp3", "file");
  Link("nowhere", "dead");
  Link("loop", "loop");
  EXPECT_EQ(NamesIn("c:\\"), (Names{"file", "folder\\", "music\\"}));
  EXPECT_EQ(files_->Attributes("c:\\dead"), std::nullopt);
  EXPECT_EQ(files_->Attributes("c:\\loop"), std::nullopt);
  EXPECT_EQ(files_->IdentityOf("c:\\folder"), files_->IdentityOf("c:\\music"));
}

TEST_F(LinuxFileSystemTest, TakesDriveLettersOfTheFolderOfLinksOnly) {
  EXPECT_EQ(files_->ToNative("z:\\usr\\a"), "/usr/a");
  EXPECT_EQ(files_->ToNative("z:\\"), "/");
  EXPECT_EQ(files_->ToNative("z:"), "/");
  EXPECT_EQ(files_->FromNative("/usr/a"), "z:\\usr\\a");
  EXPECT_EQ(files_->FromNative("/"), "z:\\");
  EXPECT_EQ(files_->ToNative("sub\\a.mp3"), "sub/a.mp3");
}

// --- the current folder ---

TEST_F(LinuxFileSystemTest, KeepsTheNameByWhichTheCurrentFolderWasReached) {
  drives_.Write("music/a.mp3", "a");
  Link("music", "link");
  files_->SetCurrentFolder("c:\\link");
  EXPECT_EQ(files_->CurrentFolder(), "c:\\link");
  EXPECT_EQ(files_->FromNative("a.mp3"), "c:\\link\\a.mp3");
  files_->SetCurrentFolder("..");
  EXPECT_EQ(files_->CurrentFolder(), "c:\\");

  std::string from_root = "z:" + drives_.C().string();
  std::replace(from_root.begin(), from_root.end(), '/', '\\');
  files_->SetCurrentFolder(from_root);
  EXPECT_EQ(files_->CurrentFolder(), from_root);
}

TEST_F(LinuxFileSystemTest, TakesTheStartingFolderFromTheEnvironmentIfThatIsTrue) {
  drives_.Write("music/a.mp3", "a");
  Link("music", "link");
  fs::current_path(drives_.C() / "music");
  setenv("PWD", (drives_.C() / "link").c_str(), 1);
  EXPECT_EQ(OpenFileSystem()->CurrentFolder(), "c:\\link");
  setenv("PWD", drives_.D().c_str(), 1);
  EXPECT_EQ(OpenFileSystem()->CurrentFolder(), "c:\\music");
  setenv("PWD", "relative", 1);
  EXPECT_EQ(OpenFileSystem()->CurrentFolder(), "c:\\music");
  unsetenv("PWD");
  EXPECT_EQ(OpenFileSystem()->CurrentFolder(), "c:\\music");
}

TEST_F(LinuxFileSystemTest, OpensAlsoWhereTheCurrentFolderIsGoneOrNoDriveLeads) {
  fs::create_directory(drives_.C() / "gone");
  fs::current_path(drives_.C() / "gone");
  fs::remove(drives_.C() / "gone");
  EXPECT_EQ(OpenFileSystem()->CurrentFolder(), "z:\\");

  fs::create_directory_symlink(drives_.D(), drives_.Root() / "dosdevices/z:");
  drives_.WriteAt(drives_.D() / "d.mp3", "123");
  fs::current_path("/");
  const auto files = OpenFileSystem();
  EXPECT_EQ(files->CurrentFolder(), "z:\\");
  EXPECT_EQ(files->FileLength("d.mp3"), 3);
}

// --- what can be opened ---

TEST_F(LinuxFileSystemTest, NeverWaitsForAPipeOrADevice) {
  ASSERT_EQ(mkfifo((drives_.C() / "pipe.mp3").c_str(), 0600), 0);
  Link("/dev/null", "null.mp3");
  Link("/dev/tty", "tty.mp3");
  for (const std::string path : {"c:\\pipe.mp3", "c:\\null.mp3", "c:\\tty.mp3", "z:\\dev\\zero"}) {
    EXPECT_THROW(files_->OpenForReading(path), Failure) << path;
    EXPECT_THROW(files_->OpenInPlace(path), Failure) << path;
    EXPECT_THROW(files_->BeginReplacement(path), Failure) << path;
    EXPECT_THROW(files_->CopyFile(path, "c:\\copy.mp3"), Failure) << path;
  }
}

TEST_F(LinuxFileSystemTest, TellsReadOnlyFilesAlsoToTheSuperuser) {
  drives_.Write("a.mp3", "a");
  Link("a.mp3", "link.mp3");
  EXPECT_FALSE(files_->IsReadOnly("c:\\a.mp3"));
  SetMode("a.mp3", 0444);
  EXPECT_TRUE(files_->IsReadOnly("c:\\a.mp3"));
  EXPECT_TRUE(files_->IsReadOnly("c:\\link.mp3"));
  EXPECT_EQ(files_->Attributes("c:\\a.mp3"), kArchive | kReadOnly);
  EXPECT_THROW(files_->IsReadOnly("c:\\none.mp3"), Failure);
  SetMode("a.mp3", 0466);
  EXPECT_TRUE(files_->IsReadOnly("c:\\a.mp3"));
}

TEST_F(LinuxFileSystemTest, SetsAnyOfTheBitsThatCanBeSet) {
  if (!KeepsExtendedAttributes()) GTEST_SKIP() << "not on this file system";
  drives_.Write("a.mp3", "a");
  for (const unsigned bits : {0u, 1u, 2u, 4u, 32u, 7u, 39u, 38u, 33u, 34u}) {
    files_->SetAttributes("c:\\a.mp3", bits | 128);
    EXPECT_EQ(files_->Attributes("c:\\a.mp3"), bits);
  }
}

TEST_F(LinuxFileSystemTest, KeepsAFolderAFolderWhenItsAttributesAreSet) {
  if (!KeepsExtendedAttributes()) GTEST_SKIP() << "not on this file system";
  files_->CreateFolder("c:\\music");
  files_->SetAttributes("c:\\music", kHidden);
  EXPECT_EQ(files_->Attributes("c:\\music"), kFolder | kHidden);
  files_->SetAttributes("c:\\music", 0);
  EXPECT_EQ(files_->Attributes("c:\\music"), kFolder);
}

TEST_F(LinuxFileSystemTest, KeepsAttributesWhereFileServersKeepThem) {
  if (!KeepsExtendedAttributes()) GTEST_SKIP() << "not on this file system";
  drives_.Write("a.mp3", "a");
  files_->SetAttributes("c:\\a.mp3", kHidden | kArchive);
  EXPECT_EQ(AttributeOf("a.mp3", "user.DOSATTRIB"), "0x22");
  files_->SetAttributes("c:\\a.mp3", kArchive);
  EXPECT_EQ(AttributeOf("a.mp3", "user.DOSATTRIB"), "none") << "the usual bits need no store";
  SetAttributeOf("a.mp3", "user.DOSATTRIB", "0x16");
  EXPECT_EQ(files_->Attributes("c:\\a.mp3"), kHidden | kSystem) << "folder and other bits are never believed";
  for (const char* strange : {"", "22", "0x", "0xzz", "\xFF\xFF\xFF\xFF"}) {
    SetAttributeOf("a.mp3", "user.DOSATTRIB", strange);
    EXPECT_TRUE(files_->Attributes("c:\\a.mp3")) << strange;
  }
}

TEST_F(LinuxFileSystemTest, TakesWriteRightsFromAllAndGivesThemToTheOwner) {
  drives_.Write("a.mp3", "a");
  SetMode("a.mp3", 0666);
  files_->SetAttributes("c:\\a.mp3", kArchive | kReadOnly);
  EXPECT_EQ(ModeOf("a.mp3"), 0444u);
  files_->SetAttributes("c:\\a.mp3", kArchive);
  EXPECT_EQ(ModeOf("a.mp3"), 0644u);
  files_->SetAttributes("c:\\a.mp3", kHidden | kReadOnly);
  EXPECT_EQ(ModeOf("a.mp3"), 0444u);
}

TEST_F(LinuxFileSystemTest, LetsTheOwnerChangeTheBitsOfAReadOnlyFile) {
  if (!KeepsExtendedAttributes()) GTEST_SKIP() << "not on this file system";
  drives_.Write("a.mp3", "a");
  const OrdinaryUser user(drives_.Root());
  SetMode("a.mp3", 0444);
  files_->SetAttributes("c:\\a.mp3", kReadOnly | kSystem);
  EXPECT_EQ(files_->Attributes("c:\\a.mp3"), kReadOnly | kSystem);
  files_->SetAttributes("c:\\a.mp3", 0);
  EXPECT_EQ(files_->Attributes("c:\\a.mp3"), 0u);
  EXPECT_THROW(files_->SetAttributes("z:\\etc\\passwd", kReadOnly), Failure);
}

TEST_F(LinuxFileSystemTest, KeepsHiddenWhatIsHiddenByItsName) {
  drives_.Write(".a.mp3", "a");
  files_->SetAttributes("c:\\.a.mp3", kArchive);
  EXPECT_EQ(files_->Attributes("c:\\.a.mp3"), kArchive | kHidden);
  files_->SetAttributes("c:\\.a.mp3", kArchive | kHidden);
  EXPECT_EQ(AttributeOf(".a.mp3", "user.DOSATTRIB"), "none");
}

TEST_F(LinuxFileSystemTest, LeavesReadOnlyFilesAlone) {
  drives_.Write("a.mp3", "old");
  drives_.Write("b.mp3", "new");
  SetMode("a.mp3", 0444);
  Link("a.mp3", "link.mp3");
  EXPECT_THROW(files_->BeginReplacement("c:\\a.mp3"), Failure);
  EXPECT_THROW(files_->BeginReplacement("c:\\link.mp3"), Failure);
  EXPECT_THROW(files_->OpenInPlace("c:\\a.mp3"), Failure);
  EXPECT_THROW(files_->CopyFile("c:\\b.mp3", "c:\\a.mp3"), Failure);
  EXPECT_EQ(drives_.Read("a.mp3"), "old");
  EXPECT_EQ(NamesIn("c:\\"), (Names{"a.mp3", "b.mp3", "link.mp3"}));
}

TEST_F(LinuxFileSystemTest, TakesAFileOfAnotherForReadOnlyWithoutWriteAccess) {
  drives_.Write("a.mp3", "old");
  const OrdinaryUser user(drives_.Root());
  EXPECT_FALSE(files_->IsReadOnly("c:\\a.mp3"));
  EXPECT_TRUE(files_->IsReadOnly("z:\\etc\\passwd"));
  EXPECT_THROW(files_->BeginReplacement("z:\\etc\\passwd"), Failure);
  EXPECT_THROW(files_->OpenInPlace("z:\\etc\\passwd"), Failure);
}

TEST_F(LinuxFileSystemTest, NeedsAFolderThatCanBeWrittenForAReplacement) {
  drives_.Write("music/a.mp3", "old");
  const OrdinaryUser user(drives_.Root());
  SetMode("music", 0555);
  EXPECT_FALSE(files_->IsReadOnly("c:\\music\\a.mp3"));
  EXPECT_THROW(files_->BeginReplacement("c:\\music\\a.mp3"), Failure);
  files_->OpenInPlace("c:\\music\\a.mp3")->WriteAt(0, BytesOf("new"));
  EXPECT_EQ(drives_.Read("music/a.mp3"), "new");
  SetMode("music", 0755);
}

TEST_F(LinuxFileSystemTest, ReplacesInAFolderThatCanBeWrittenButNotRead) {
  drives_.Write("music/a.mp3", "old");
  const OrdinaryUser user(drives_.Root());
  SetMode("music", 0333);
  EXPECT_THROW(files_->ReadFolder("c:\\music"), Failure);
  Replace("c:\\music\\a.mp3", "new");
  SetMode("music", 0755);
  EXPECT_EQ(drives_.Read("music/a.mp3"), "new");
}

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

// --- the kernel's own files ---

TEST_F(LinuxFileSystemTest, ListsNothingWhereTheKernelShowsItself) {
  Link("/proc", "processes");
  for (const std::string folder : {"z:\\proc", "z:\\proc\\self", "z:\\proc\\self\\fd", "z:\\sys", "c:\\processes"}) {
    EXPECT_EQ(NamesIn(folder), Names{}) << folder;
  }
  EXPECT_EQ(NamesIn("c:\\"), Names{"processes\\"});
}

TEST_F(LinuxFileSystemTest, ListsAFolderThatALinkOfTheKernelLeadsTo) {
  drives_.Write("a.mp3", "a");
  EXPECT_EQ(NamesIn("z:\\proc\\self\\cwd"), Names{"a.mp3"});
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

// --- moving ---

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

#include "platform/linux/linux_file_system_test_base.h"
#include "support/ordinary_user.h"

namespace qublet {
namespace {

namespace fs = std::filesystem;

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

// For as long as it lives new files don't get these rights.
class UmaskOf {
 public:
  explicit UmaskOf(mode_t mask) : before_(umask(mask)) {}
  ~UmaskOf() { umask(before_); }
  UmaskOf(const UmaskOf&) = delete;
  UmaskOf& operator=(const UmaskOf&) = delete;

 private:
  mode_t before_;
};

TEST_F(LinuxFileSystemTest, TakesWriteRightsFromAllAndGivesThemBackToThoseWhoMayRead) {
  struct Case {
    mode_t umask, before, read_only, after;
  };
  for (const Case& c : {Case{0022, 0666, 0444, 0644}, Case{0002, 0664, 0444, 0664}, Case{0000, 0666, 0444, 0666},
                        Case{0002, 0640, 0440, 0660}, Case{0000, 0751, 0551, 0771}, Case{0077, 0644, 0444, 0644}}) {
    const UmaskOf mask(c.umask);
    drives_.Write("a.mp3", "a");
    SetMode("a.mp3", c.before);
    files_->SetAttributes("c:\\a.mp3", kArchive | kReadOnly);
    EXPECT_EQ(ModeOf("a.mp3"), c.read_only);
    files_->SetAttributes("c:\\a.mp3", kArchive);
    EXPECT_EQ(ModeOf("a.mp3"), c.after);
    SetMode("a.mp3", 0644);
  }
}

TEST_F(LinuxFileSystemTest, LeavesTheModeWhereReadOnlyStaysWhatItIs) {
  if (!KeepsExtendedAttributes()) GTEST_SKIP() << "not on this file system";
  drives_.Write("a.mp3", "a");
  for (const mode_t mode : {0640u, 0600u, 0666u, 0755u}) {
    SetMode("a.mp3", mode);
    files_->SetAttributes("c:\\a.mp3", kHidden);
    EXPECT_EQ(ModeOf("a.mp3"), mode);
    files_->SetAttributes("c:\\a.mp3", kArchive);
    EXPECT_EQ(ModeOf("a.mp3"), mode);
  }
  SetMode("a.mp3", 0466);
  files_->SetAttributes("c:\\a.mp3", kReadOnly | kSystem);
  EXPECT_EQ(ModeOf("a.mp3"), 0466u);
  SetMode("a.mp3", 0644);
}

TEST_F(LinuxFileSystemTest, MakesAFileForThisUserAlone) {
  const UmaskOf mask(0);
  files_->CreatePrivate("c:\\own")->WriteAt(0, BytesOf("x"));
  EXPECT_EQ(ModeOf("own"), 0600u);
  EXPECT_THROW(files_->CreatePrivate("c:\\own"), Failure);
  EXPECT_EQ(drives_.Read("own"), "x");
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

}  // namespace
}  // namespace qublet

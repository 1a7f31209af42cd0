#include <sys/stat.h>
#include <unistd.h>

#include "platform/held_file.h"
#include "platform/linux/linux_file_system_test_base.h"
#include "platform/linux/user_folders.h"
#include "platform/program.h"
#include "support/ordinary_user.h"
#include "support/temporary_desktop.h"

namespace qublet {
namespace {

namespace fs = std::filesystem;

constexpr uid_t kAnother = 1234;

class OwnFilesTest : public LinuxFileSystemTest {
 protected:
  const FileSystem& Own() const { return files_->OwnFiles(); }
  void ReplaceOwn(const std::string& path, const std::string& content) const {
    const auto next = Own().BeginReplacement(path);
    next->Write(BytesOf(content));
    next->Commit();
  }
  // Links themselves.
  void Give(const std::string& name, uid_t owner) const {
    ASSERT_EQ(lchown((drives_.C() / name).c_str(), owner, owner), 0);
  }
  // Neither read nor written, however it is tried.
  void ExpectShut(const FileSystem& files, const std::string& path) const {
    EXPECT_THROW(files.OpenForReading(path), Failure) << path;
    EXPECT_THROW(files.BeginReplacement(path), Failure) << path;
    EXPECT_THROW(files.OpenInPlace(path), Failure) << path;
  }
  void ExpectOpen(const FileSystem& files, const std::string& path) const {
    EXPECT_NO_THROW(files.OpenForReading(path)) << path;
    EXPECT_NO_THROW(files.BeginReplacement(path)) << path;
    EXPECT_NO_THROW(files.OpenInPlace(path)) << path;
  }
};

// For what needs files of several users.
class FilesOfOthersTest : public OwnFilesTest {
 protected:
  void SetUp() override {
    if (geteuid() != 0) GTEST_SKIP() << "only the superuser can make files of another user";
  }
};

TEST_F(OwnFilesTest, AreMadeForThisUserAlone) {
  const mode_t before = umask(0);
  ReplaceOwn("c:\\last.m3u", "new");
  Own().CreateFolder("c:\\Bookmarks");
  MakeFolders((drives_.C() / "a/b/c").string());
  Replace("c:\\saved.m3u", "the user's own");
  umask(before);
  EXPECT_EQ(ModeOf("last.m3u"), 0600u);
  EXPECT_EQ(ModeOf("Bookmarks"), 0700u);
  for (const char* folder : {"a", "a/b", "a/b/c"}) EXPECT_EQ(ModeOf(folder), 0700u) << folder;
  EXPECT_EQ(ModeOf("saved.m3u"), 0666u);
}

TEST_F(OwnFilesTest, AreShutToOthersByTheNextVersion) {
  drives_.Write("last.m3u", "old");
  SetMode("last.m3u", 0664);
  ReplaceOwn("c:\\last.m3u", "new");
  EXPECT_EQ(drives_.Read("last.m3u"), "new");
  EXPECT_EQ(ModeOf("last.m3u"), 0600u);
}

TEST_F(OwnFilesTest, AreReachedByLinksThatNobodyElseCouldHaveMade) {
  drives_.Write("kept/last.m3u", "old");
  Link("kept/last.m3u", "between.m3u");
  Link(drives_.C() / "between.m3u", "last.m3u");
  ExpectOpen(Own(), "c:\\last.m3u");
  ReplaceOwn("c:\\last.m3u", "new");
  EXPECT_TRUE(fs::is_symlink(drives_.C() / "last.m3u"));
  EXPECT_EQ(drives_.Read("kept/last.m3u"), "new");
}

TEST_F(OwnFilesTest, AreReachedByNoLinkInAFolderThatOthersCanWrite) {
  drives_.Write("home/.profile", "export A=1");
  fs::create_directory(drives_.C() / "shared");
  Link("../home/.profile", "shared/tmp.m3u");
  Link("shared/tmp.m3u", "tmp.m3u");
  for (const mode_t mode : {0777u, 01777u, 0775u, 0757u}) {
    SetMode("shared", mode);
    ExpectShut(Own(), "c:\\shared\\tmp.m3u");
    ExpectShut(Own(), "c:\\tmp.m3u");
  }
  EXPECT_EQ(drives_.Read("home/.profile"), "export A=1");
  SetMode("shared", 0755);
  ExpectOpen(Own(), "c:\\tmp.m3u");
}

TEST_F(FilesOfOthersTest, AreNeitherReadNorReplacedAsOwn) {
  drives_.Write("tmp.m3u", "of another");
  Link("tmp.m3u", "link.m3u");
  Give("tmp.m3u", kAnother);
  ExpectShut(Own(), "c:\\tmp.m3u");
  ExpectShut(Own(), "c:\\link.m3u");
  EXPECT_EQ(drives_.Read("tmp.m3u"), "of another");
  ExpectOpen(*files_, "c:\\tmp.m3u");
}

TEST_F(FilesOfOthersTest, AreNoLinksToOwnFiles) {
  drives_.Write(".profile", "export A=1");
  Link(".profile", "tmp.m3u");
  Give("tmp.m3u", kAnother);
  ExpectShut(Own(), "c:\\tmp.m3u");
  EXPECT_EQ(drives_.Read(".profile"), "export A=1");
}

TEST_F(FilesOfOthersTest, AreNoLinksToOwnFilesInAFolderOfAnother) {
  drives_.Write(".profile", "export A=1");
  fs::create_directory(drives_.C() / "theirs");
  Link("../.profile", "theirs/tmp.m3u");
  ExpectOpen(Own(), "c:\\theirs\\tmp.m3u");
  Give("theirs", kAnother);
  ExpectShut(Own(), "c:\\theirs\\tmp.m3u");
}

TEST_F(FilesOfOthersTest, AreNotHeld) {
  drives_.Write("a.lock", "");
  Give("a.lock", kAnother);
  EXPECT_THROW(HoldFile(*files_, "c:\\a.lock"), Failure);
  EXPECT_TRUE(fs::exists(drives_.C() / "a.lock"));
}

TEST_F(FilesOfOthersTest, AreNotKeptInFoldersThatBelongToOthersToo) {
  for (const char* folder : {"theirs", "everybodys"}) {
    fs::create_directory(drives_.C() / folder);
    drives_.Write(std::string(folder) + "/last.m3u", "mine");
  }
  Give("theirs", kAnother);
  ASSERT_EQ(chmod((drives_.C() / "everybodys").c_str(), 0777), 0);
  ExpectShut(Own(), "c:\\theirs\\last.m3u");
  ExpectShut(Own(), "c:\\everybodys\\last.m3u");
  EXPECT_THROW(Own().BeginReplacement("c:\\theirs\\new.m3u"), Failure);
}

TEST_F(FilesOfOthersTest, AreNoFoldersForOwnFiles) {
  const Variable data("XDG_DATA_HOME", (drives_.C() / "data").string());
  fs::create_directories(drives_.C() / "data/velmora");
  EXPECT_NO_THROW(OwnFolderOfUser(*files_));
  Give("data/velmora", kAnother);
  EXPECT_THROW(OwnFolderOfUser(*files_), Failure);
}

TEST_F(FilesOfOthersTest, AreNoFolderForATime) {
  const Variable runtime("XDG_RUNTIME_DIR", (drives_.C() / "run").string());
  const Variable cache("XDG_CACHE_HOME", (drives_.C() / "cache").string());
  fs::create_directories(drives_.C() / "run/velmora");
  EXPECT_EQ(TemporaryFolder(), drives_.C() / "run/velmora");
  Give("run/velmora", kAnother);
  EXPECT_EQ(TemporaryFolder(), drives_.C() / "cache/velmora");
  EXPECT_EQ(ModeOf("cache/velmora"), 0700u);
}

TEST_F(OwnFilesTest, StandWhereNobodyElseCanWrite) {
  fs::create_directory(drives_.C() / "program");
  for (const mode_t mode : {0700u, 0755u, 0711u}) {
    SetMode("program", mode);
    EXPECT_FALSE(OthersCanWriteIn(*files_, "c:\\program")) << std::oct << mode;
  }
  for (const mode_t mode : {0777u, 01777u, 0775u, 0702u, 0720u}) {
    SetMode("program", mode);
    EXPECT_TRUE(OthersCanWriteIn(*files_, "c:\\program")) << std::oct << mode;
  }
  EXPECT_THROW(OthersCanWriteIn(*files_, "c:\\gone"), Failure);
}

TEST_F(FilesOfOthersTest, CanComeIntoAFolderOfAnotherButNotIntoTheSuperusers) {
  fs::create_directory(drives_.C() / "program");
  Give("program", kAnother);
  EXPECT_TRUE(OthersCanWriteIn(*files_, "c:\\program"));
  const OrdinaryUser user(drives_.Root());
  ASSERT_EQ(seteuid(0), 0);
  Give("program", 0);
  ASSERT_EQ(seteuid(65534), 0);
  EXPECT_FALSE(OthersCanWriteIn(*files_, "c:\\program"));
}

// --- links in folders where all may make names and only owners remove them ---

class StickyFolderTest : public FilesOfOthersTest {
 protected:
  void SetUp() override {
    FilesOfOthersTest::SetUp();
    if (IsSkipped()) return;
    drives_.Write("music/list.m3u", "old");
    fs::create_directory(drives_.C() / "tmp");
    Link("../music/list.m3u", "tmp/list.m3u");
    SetMode("tmp", 01777);
  }
};

TEST_F(StickyFolderTest, OnesOwnLinksAreFollowed) {
  Give("tmp", kAnother);
  ExpectOpen(*files_, "c:\\tmp\\list.m3u");
  Replace("c:\\tmp\\list.m3u", "new");
  EXPECT_EQ(drives_.Read("music/list.m3u"), "new");
  EXPECT_TRUE(files_->LinkedFile("c:\\tmp\\list.m3u"));
}

TEST_F(StickyFolderTest, LinksOfOthersAreNotFollowedNeitherForReadingNorForASave) {
  Give("tmp/list.m3u", kAnother);
  Link("tmp/list.m3u", "by the way.m3u");
  for (const char* path : {"c:\\tmp\\list.m3u", "c:\\by the way.m3u"}) {
    ExpectShut(*files_, path);
    EXPECT_FALSE(files_->LinkedFile(path));
    EXPECT_THROW(files_->CopyFile("c:\\music\\list.m3u", path), Failure);
  }
  EXPECT_EQ(drives_.Read("music/list.m3u"), "old");
}

TEST_F(StickyFolderTest, LinksOfTheFoldersOwnerAreFollowed) {
  Give("tmp", kAnother);
  Give("tmp/list.m3u", kAnother);
  ExpectOpen(*files_, "c:\\tmp\\list.m3u");
}

TEST_F(StickyFolderTest, LinksOfOthersAreFollowedElsewhere) {
  Give("tmp/list.m3u", kAnother);
  for (const mode_t mode : {0777u, 01775u}) {
    SetMode("tmp", mode);
    ExpectOpen(*files_, "c:\\tmp\\list.m3u");
  }
}

// --- what makes a file more powerful than its bytes ---

TEST_F(OwnFilesTest, NoNewVersionRunsWithTheRightsOfItsOwner) {
  for (const mode_t mode : {04755u, 02755u, 06711u}) {
    drives_.Write("a.mp3", "old");
    SetMode("a.mp3", mode);
    Replace("c:\\a.mp3", "new");
    EXPECT_EQ(ModeOf("a.mp3"), mode & 0777);
  }
}

TEST_F(OwnFilesTest, NoCopyRunsWithTheRightsOfItsOwner) {
  drives_.Write("a.mp3", "content");
  SetMode("a.mp3", 06755);
  files_->CopyFile("c:\\a.mp3", "c:\\new.mp3");
  drives_.Write("b.mp3", "old");
  SetMode("b.mp3", 06755);
  files_->CopyFile("c:\\a.mp3", "c:\\b.mp3");
  EXPECT_EQ(ModeOf("new.mp3"), 0755u);
  EXPECT_EQ(ModeOf("b.mp3"), 0755u);
}

TEST_F(OwnFilesTest, NoNewVersionAndNoCopyKeepsWhatTheSystemBelievesOfAFile) {
  drives_.Write("a.mp3", "old");
  const std::string place = (drives_.C() / "a.mp3").string();
  const bool can = setxattr(place.c_str(), "trusted.qublet", "1", 1, 0) == 0 &&
                   setxattr(place.c_str(), "security.qublet", "1", 1, 0) == 0 && KeepsExtendedAttributes();
  if (!can) GTEST_SKIP() << "only the superuser can make such attributes, and not on every file system";
  SetAttributeOf("a.mp3", "user.rating", "5");
  files_->CopyFile("c:\\a.mp3", "c:\\copy.mp3");
  Replace("c:\\a.mp3", "new");
  for (const char* name : {"a.mp3", "copy.mp3"}) {
    EXPECT_EQ(AttributeOf(name, "trusted.qublet"), "none");
    EXPECT_EQ(AttributeOf(name, "security.qublet"), "none");
    EXPECT_EQ(AttributeOf(name, "user.rating"), "5");
  }
}

}  // namespace
}  // namespace qublet

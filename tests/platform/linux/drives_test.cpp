#include "platform/linux/drives.h"

#include <gtest/gtest.h>

#include "platform/failure.h"
#include "support/temporary_drives.h"

namespace qublet {
namespace {

namespace fs = std::filesystem;

class DrivesTest : public ::testing::Test {
 protected:
  void Link(const fs::path& target, const std::string& name) const {
    fs::create_directory_symlink(target, folder_ / name);
  }
  std::string Native(const std::string& name) const { return (place_.Root() / name).string(); }

  TemporaryDrives place_;
  fs::path folder_ = place_.Root() / "dosdevices";
};

TEST_F(DrivesTest, FindsADriveByItsLetterInAnyCase) {
  const Drives drives(folder_);
  EXPECT_EQ(drives.RootOf('c'), place_.C());
  EXPECT_EQ(drives.RootOf('D'), place_.D());
  EXPECT_THROW(drives.RootOf('q'), Failure);
  EXPECT_THROW(drives.RootOf('1'), Failure);
  EXPECT_THROW(drives.RootOf('\xE9'), Failure);
}

TEST_F(DrivesTest, ResolvesRelativeLinksAgainstTheFolder) {
  Link("../d", "e:");
  EXPECT_EQ(Drives(folder_).RootOf('e'), place_.D());
}

TEST_F(DrivesTest, HasTheRootFolderAsZ) {
  const Drives drives(folder_);
  EXPECT_EQ(drives.RootOf('z'), "");
  EXPECT_EQ(drives.TextOf("/usr/a.mp3"), "z:\\usr\\a.mp3");
  EXPECT_EQ(drives.TextOf("/"), "z:\\");
}

TEST_F(DrivesTest, HasZAloneWithoutAFolderOfLinks) {
  for (const Drives& drives : {Drives(""), Drives("/no/such/folder")}) {
    EXPECT_EQ(drives.TextOf("/home"), "z:\\home");
    EXPECT_THROW(drives.RootOf('c'), Failure);
  }
}

TEST_F(DrivesTest, LeavesZToTheFolderOfLinks) {
  Link(place_.C(), "z:");
  const Drives drives(folder_);
  EXPECT_EQ(drives.RootOf('z'), place_.C());
  EXPECT_THROW(drives.TextOf("/usr"), Failure);
}

TEST_F(DrivesTest, SkipsDeadLinksFilesAndOtherNames) {
  place_.Write("file", "x");
  Link("/no/such/place", "e:");
  Link("/no/such/place", "z:");
  Link(place_.C() / "file", "f:");
  Link(place_.C(), "g");
  Link(place_.C(), "h::");
  Link(place_.C(), "1:");
  const Drives drives(folder_);
  for (const char letter : {'e', 'f', 'g', 'h', '1'}) EXPECT_THROW(drives.RootOf(letter), Failure) << letter;
  EXPECT_EQ(drives.RootOf('z'), "");
}

TEST_F(DrivesTest, TakesATrueFolderForADriveToo) {
  fs::create_directory(folder_ / "m:");
  EXPECT_EQ(Drives(folder_).RootOf('m'), folder_ / "m:");
}

TEST_F(DrivesTest, PrefersTheLongestTargetOnWholeNames) {
  fs::create_directories(place_.C() / "music");
  Link(place_.C() / "music", "m:");
  const Drives drives(folder_);
  EXPECT_EQ(drives.TextOf(Native("c/music/a.mp3")), "m:\\a.mp3");
  EXPECT_EQ(drives.TextOf(Native("c/music")), "m:\\");
  EXPECT_EQ(drives.TextOf(Native("c/music2/a.mp3")), "c:\\music2\\a.mp3");
  EXPECT_EQ(drives.TextOf(Native("c/musi")), "c:\\musi");
}

TEST_F(DrivesTest, PrefersTheFirstLetterOfEqualTargets) {
  Link(place_.C(), "b:");
  Link(place_.C(), "x:");
  EXPECT_EQ(Drives(folder_).TextOf(Native("c/a.mp3")), "b:\\a.mp3");
}

TEST_F(DrivesTest, KnowsATargetAsWrittenAndAsItIs) {
  Link(place_.C(), "link");
  fs::create_directories(place_.C() / "music");
  Link("link/music", "m:");
  const Drives drives(folder_);
  EXPECT_EQ(drives.RootOf('m'), Native("c/music"));
  EXPECT_EQ(drives.TextOf(Native("c/music/a")), "m:\\a");
  EXPECT_EQ(drives.TextOf(Native("dosdevices/link/music/a")), "m:\\a");
}

TEST_F(DrivesTest, TakesTheFirstFolderOfLinksThatExists) {
  const auto make = [&](const std::string& name) {
    fs::create_directories(place_.Root() / name);
    return Native(name);
  };
  setenv("HOME", make("home").c_str(), 1);
  setenv("WINEPREFIX", make("prefix").c_str(), 1);
  setenv("QUBLET_DOSDEVICES", Native("nowhere").c_str(), 1);
  EXPECT_EQ(Drives::FindFolder(), "");
  const std::string home = make("home/.wine/dosdevices");
  EXPECT_EQ(Drives::FindFolder(), home);
  const std::string prefix = make("prefix/dosdevices");
  EXPECT_EQ(Drives::FindFolder(), prefix);
  const std::string config = make("config/velmora/dosdevices");
  EXPECT_EQ(Drives::FindFolder(), config);
  setenv("QUBLET_DOSDEVICES", folder_.c_str(), 1);
  EXPECT_EQ(Drives::FindFolder(), folder_);
}

TEST_F(DrivesTest, LooksForSettingsInTheHomeFolderWhereNothingElseIsSaid) {
  fs::create_directories(place_.Root() / "home/.config/velmora/dosdevices");
  setenv("HOME", Native("home").c_str(), 1);
  unsetenv("XDG_CONFIG_HOME");
  unsetenv("WINEPREFIX");
  unsetenv("QUBLET_DOSDEVICES");
  EXPECT_EQ(Drives::FindFolder(), Native("home/.config/velmora/dosdevices"));
}

TEST(PlainNativePath, ResolvesDotsAndSeparatorsAsText) {
  EXPECT_EQ(PlainNativePath("/a/./b//c/../d/"), "/a/b/d");
  EXPECT_EQ(PlainNativePath("/"), "/");
  EXPECT_EQ(PlainNativePath(""), "/");
  EXPECT_EQ(PlainNativePath("/../../a"), "/a");
  EXPECT_EQ(PlainNativePath("/a/.."), "/");
  EXPECT_EQ(PlainNativePath("/a/...//..b"), "/a/.../..b");
}

}  // namespace
}  // namespace qublet

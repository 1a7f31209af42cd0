#include "platform/server.h"

#include <gtest/gtest.h>

#include "support/temporary_drives.h"

namespace qublet {
namespace {

TEST(ServerIn, IsNamedBehindTwoSeparators) {
  for (const char* path : {"\\\\nas\\music\\a.mp3", "\\\\NAS\\music", "\\\\nas", "//nas/music/a.mp3", "\\/nas/a.mp3",
                           "/\\nas\\a.mp3", "\\\\\\nas\\a.mp3", "\\\\?\\UNC\\nas\\music\\a.mp3", "//?/unc/Nas/music"})
    EXPECT_EQ(ServerIn(path), "nas") << path;
}

TEST(ServerIn, IsNothingForOtherPaths) {
  for (const char* path : {"", "\\", "a.mp3", "c:\\nas\\a.mp3", "\\nas\\a.mp3", "/nas/a.mp3", "a\\\\nas\\a.mp3",
                           "\\\\?\\c:\\nas\\a.mp3", "\\http://nas/a.mp3"})
    EXPECT_EQ(ServerIn(path), "") << path;
}

TEST(ServerIn, IsNoServersNameForDevices) {
  EXPECT_EQ(ServerIn("\\\\.\\pipe\\a.mp3"), ".");
  EXPECT_EQ(ServerIn("\\\\?\\GLOBALROOT\\Device\\Mup\\nas\\a.mp3"), "?");
  EXPECT_EQ(ServerIn("\\\\?\\cx:\\a.mp3"), "?");
}

TEST(ServerOf, IsThatOfThePathAndNoneForADiskOfThisComputer) {
  const TemporaryDrives drives;
  drives.Write("list/a.mp3", "abc");
  const auto files = OpenFileSystem();
  EXPECT_EQ(ServerOf(*files, "\\\\NAS\\music\\"), "nas");
  for (const char* folder : {"c:\\list\\", "c:\\", "c:\\gone\\", "q:\\", ""})
    EXPECT_EQ(ServerOf(*files, folder), "") << folder;
}

}  // namespace
}  // namespace qublet

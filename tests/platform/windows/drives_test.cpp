#include "platform/windows/drives.h"

#include <gtest/gtest.h>

#include "platform/failure.h"
#include "support/temporary_drives.h"

namespace qublet {
namespace {

TEST(PlainNativePath, ResolvesSeparatorsAndDots) {
  EXPECT_EQ(PlainNativePath("C:\\a\\b.mp3"), "C:\\a\\b.mp3");
  EXPECT_EQ(PlainNativePath("c:/a//b/./c/../d.mp3"), "c:\\a\\b\\d.mp3");
  EXPECT_EQ(PlainNativePath("c:\\a\\"), "c:\\a");
  EXPECT_EQ(PlainNativePath("c:\\..\\..\\a"), "c:\\a");
  for (const char* root : {"c:", "c:\\", "c:\\.", "c:\\a\\.."}) EXPECT_EQ(PlainNativePath(root), "c:\\") << root;
}

TEST(PlainNativePath, KeepsServerAndShareTogether) {
  EXPECT_EQ(PlainNativePath("\\\\nas\\music\\a.mp3"), "\\\\nas\\music\\a.mp3");
  EXPECT_EQ(PlainNativePath("//nas/music/../a.mp3"), "\\\\nas\\music\\a.mp3");
}

TEST(PlainNativePath, TakesTheLongFormsAsWhatTheyMean) {
  EXPECT_EQ(PlainNativePath("\\\\?\\C:\\a.mp3"), "C:\\a.mp3");
  EXPECT_EQ(PlainNativePath("\\\\?\\UNC\\nas\\music\\a.mp3"), "\\\\nas\\music\\a.mp3");
}

TEST(PlainNativePath, RefusesDevicesAndStreamsInsideFiles) {
  for (const char* path : {"\\\\.\\PhysicalDrive0", "\\\\?\\Volume{1}\\a", "\\\\server", "c:\\a.mp3:stream"})
    EXPECT_THROW(PlainNativePath(path), Failure) << path;
}

TEST(Drives, AreThoseOfTheSystemWithoutStandIns) {
  const Drives drives("");
  EXPECT_EQ(drives.RootOf('C'), "c:");
  EXPECT_EQ(drives.TextOf("C:\\Music\\a.mp3"), "c:\\Music\\a.mp3");
  EXPECT_EQ(drives.TextOf("\\\\nas\\music\\a.mp3"), "\\\\nas\\music\\a.mp3");
  EXPECT_THROW(drives.RootOf('1'), Failure);
}

TEST(Drives, AreStoodInForByFolders) {
  const TemporaryDrives places;
  const std::string root = places.Root().string();
  const Drives drives(root);
  EXPECT_EQ(drives.RootOf('d'), root + "\\d");
  EXPECT_EQ(drives.RootOf('D'), root + "\\d");
  EXPECT_EQ(drives.TextOf(root + "\\d"), "d:\\");
  EXPECT_EQ(drives.TextOf(root + "\\d\\x.mp3"), "d:\\x.mp3");
  EXPECT_EQ(drives.TextOf(root + "\\dx\\x.mp3").substr(1, 1), ":");
  EXPECT_NE(drives.TextOf(root + "\\dx\\x.mp3"), "d:x\\x.mp3");
}

}  // namespace
}  // namespace qublet

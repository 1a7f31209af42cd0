#include "playlist/paths/file_details.h"

#include <gtest/gtest.h>

#include "support/temporary_drives.h"

namespace qublet {
namespace {

class OnDisk : public testing::Test {
 protected:
  const TemporaryDrives drives_;
  const std::unique_ptr<FileSystem> files_ = OpenFileSystem();

  FileDetails DetailsOf(std::string path) const {
    FileDetails details;
    GetFileDetails(*files_, path, details);
    EXPECT_EQ(path, details.Path);
    return details;
  }
};

using GetFileDetailsTest = OnDisk;
using FileExistsTest = OnDisk;
using SafeOperations = OnDisk;

TEST_F(GetFileDetailsTest, KnowsAFileAndItsExtension) {
  drives_.Write("music/A Song.MP3", "x");
  const FileDetails details = DetailsOf("C:\\music\\A Song.MP3");
  EXPECT_TRUE(details.Exists);
  EXPECT_TRUE(details.IsFile);
  EXPECT_FALSE(details.IsFolder);
  EXPECT_EQ(details.Path, "c:\\music\\A Song.MP3");
  EXPECT_EQ(details.Extension, ".mp3");
}

TEST_F(GetFileDetailsTest, GivesNoExtensionForANameWithoutADot) {
  drives_.Write("music.d/readme", "x");
  EXPECT_EQ(DetailsOf("c:\\music.d\\readme").Extension, "");
}

TEST_F(GetFileDetailsTest, KnowsFoldersAndTheRootOfADrive) {
  drives_.Write("music.d/a.mp3", "x");
  for (const char* path : {"c:\\music.d", "C:\\music.d\\", "c:", "C:\\", "d:"}) {
    const FileDetails details = DetailsOf(path);
    EXPECT_TRUE(details.Exists) << path;
    EXPECT_TRUE(details.IsFolder) << path;
    EXPECT_FALSE(details.IsFile) << path;
    EXPECT_EQ(details.Extension, "") << path;
  }
}

TEST_F(GetFileDetailsTest, LeavesTheExtensionOfTheCallerForAFolder) {
  FileDetails details;
  details.Extension = ".old";
  std::string folder = "c:\\";
  GetFileDetails(*files_, folder, details);
  EXPECT_EQ(details.Extension, ".old");
  std::string missing = "c:\\missing.mp3";
  GetFileDetails(*files_, missing, details);
  EXPECT_EQ(details.Extension, "");
}

TEST_F(GetFileDetailsTest, SetsThePathOfWhatIsMissing) {
  const FileDetails details = DetailsOf("C:\\missing.mp3\\");
  EXPECT_EQ(details.Path, "c:\\missing.mp3");
  EXPECT_FALSE(details.Exists || details.IsFile || details.IsFolder);
  EXPECT_FALSE(DetailsOf("q:\\a").Exists);
  EXPECT_FALSE(DetailsOf("").Exists);
}

TEST_F(FileExistsTest, CountsFilesAndFolders) {
  drives_.Write("music/a.mp3", "x");
  EXPECT_TRUE(FileExists(*files_, "c:\\music\\a.mp3"));
  EXPECT_TRUE(FileExists(*files_, "c:\\music"));
  EXPECT_TRUE(FileExists(*files_, "c:\\music\\"));
  EXPECT_TRUE(FileExists(*files_, "music\\a.mp3"));
  EXPECT_FALSE(FileExists(*files_, ""));
  EXPECT_FALSE(FileExists(*files_, "c:\\music\\b.mp3"));
  EXPECT_FALSE(FileExists(*files_, "c:\\music\\a.mp3\\x"));
  EXPECT_FALSE(FileExists(*files_, "q:\\a.mp3"));
  EXPECT_FALSE(FileExists(*files_, std::string("c:\\\0\xFF", 5)));
  EXPECT_FALSE(FileExists(*files_, "c:\\" + std::string(70000, 'x')));
}

TEST_F(FileExistsTest, CountsAPatternThatFitsAName) {
  drives_.Write("music/a.mp3", "x");
  drives_.Write("hidden/.secret", "x");
  drives_.Write("outer/inner/a", "x");
  EXPECT_TRUE(FileExists(*files_, "c:\\music\\*.MP3"));
  EXPECT_TRUE(FileExists(*files_, "c:\\music\\?.mp3"));
  EXPECT_TRUE(FileExists(*files_, "c:\\outer\\in*"));
  EXPECT_TRUE(FileExists(*files_, "mus*"));
  EXPECT_FALSE(FileExists(*files_, "c:\\music\\*.ogg"));
  EXPECT_FALSE(FileExists(*files_, "c:\\hidden\\*.*"));
  EXPECT_TRUE(FileExists(*files_, "c:\\hidden\\.secret"));
  EXPECT_FALSE(FileExists(*files_, "c:\\mus*\\a.mp3"));
  EXPECT_FALSE(FileExists(*files_, "q:\\*.*"));
}

TEST_F(FileExistsTest, CountsANameThatHoldsAPatternCharacterItself) {
  drives_.Write("music/.who?.mp3", "x");
  EXPECT_TRUE(FileExists(*files_, "c:\\music\\.who?.mp3"));
  EXPECT_FALSE(FileExists(*files_, "c:\\music\\.wh?.mp3"));
}

TEST_F(SafeOperations, RenameMovesAndNeverReplaces) {
  drives_.Write("a", "from");
  drives_.Write("b", "present");
  EXPECT_FALSE(RenameFileSafe(*files_, "c:\\a", "c:\\b"));
  EXPECT_EQ(drives_.Read("b"), "present");
  EXPECT_TRUE(RenameFileSafe(*files_, "c:\\a", "d:\\moved"));
  EXPECT_EQ(TemporaryDrives::ReadAt(drives_.D() / "moved"), "from");
  EXPECT_FALSE(RenameFileSafe(*files_, "c:\\a", "c:\\c"));
}

TEST_F(SafeOperations, DeleteTakesFilesOnly) {
  drives_.Write("music/a", "x");
  EXPECT_TRUE(DeleteFileSafe(*files_, "c:\\music\\a"));
  EXPECT_FALSE(DeleteFileSafe(*files_, "c:\\music\\a"));
  EXPECT_FALSE(DeleteFileSafe(*files_, "c:\\music"));
  EXPECT_FALSE(DeleteFileSafe(*files_, ""));
}

TEST_F(SafeOperations, CopyReplacesItsTarget) {
  drives_.Write("a", "new");
  drives_.Write("b", "old");
  EXPECT_TRUE(CopyFileSafe(*files_, "c:\\a", "c:\\b"));
  EXPECT_EQ(drives_.Read("b"), "new");
  EXPECT_EQ(drives_.Read("a"), "new");
  EXPECT_FALSE(CopyFileSafe(*files_, "c:\\missing", "c:\\b"));
  EXPECT_EQ(drives_.Read("b"), "new");
}

}  // namespace
}  // namespace qublet

#include "platform/real_names.h"

#include <gtest/gtest.h>

#include "platform/forwarding_file_system.h"
#include "support/file_system_test_base.h"

namespace qublet {
namespace {

class RealNamesTest : public FileSystemTestBase {
 protected:
  std::string RealOf(const std::string& path) const { return files_->FindRealNames()->Of(path).value_or("none"); }
};

// Counts what is listed.
class ListingFileSystem : public ForwardingFileSystem {
 public:
  using ForwardingFileSystem::ForwardingFileSystem;
  std::vector<FolderEntry> ReadFolder(const std::string& folder) const override {
    ++listed;
    return ForwardingFileSystem::ReadFolder(folder);
  }
  mutable int listed = 0;
};

TEST_F(RealNamesTest, FindEachStepInAnotherCase) {
  drives_.Write("Music/Abba/Song.mp3", "");
  EXPECT_EQ(RealOf("c:\\music\\ABBA\\SONG.MP3"), "c:\\Music\\Abba\\Song.mp3");
  EXPECT_EQ(RealOf("c:\\Music\\Abba\\Song.mp3"), "c:\\Music\\Abba\\Song.mp3");
  EXPECT_EQ(RealOf("C:\\MUSIC"), "C:\\Music");
  EXPECT_EQ(RealOf("c:\\MUSIC\\gone.mp3"), "none");
  EXPECT_EQ(RealOf("c:\\gone\\Song.mp3"), "none");
}

TEST_F(RealNamesTest, TakeThatInTheSameCaseFirst) {
  drives_.Write("a.mp3", "");
  drives_.Write("A.mp3", "");
  EXPECT_EQ(RealOf("c:\\a.mp3"), "c:\\a.mp3");
  EXPECT_EQ(RealOf("c:\\A.mp3"), "c:\\A.mp3");
  EXPECT_EQ(RealOf("c:\\a.MP3"), "none") << "several could be meant";
}

TEST_F(RealNamesTest, FindAccentsWrittenTheOtherWay) {
  drives_.Write("\u00E9.mp3", "");
  EXPECT_EQ(RealOf("c:\\e\u0301.mp3"), "c:\\\u00E9.mp3");
  EXPECT_EQ(RealOf("c:\\E\u0301.MP3"), "c:\\\u00E9.mp3");
  EXPECT_EQ(RealOf("c:\\e.mp3"), "none");
  drives_.Write("e\u0301.mp3", "");
  EXPECT_EQ(RealOf("c:\\\u00C9.mp3"), "c:\\\u00E9.mp3") << "the same letters in another case come first";
}

TEST_F(RealNamesTest, ResolveSteps) {
  drives_.Write("Music/Song.mp3", "");
  EXPECT_EQ(RealOf("c:\\x\\..\\MUSIC\\.\\song.mp3"), "none") << "there is no folder x";
  drives_.Write("x/y", "");
  EXPECT_EQ(RealOf("c:\\x\\..\\MUSIC\\.\\\\song.mp3"), "c:\\x\\..\\Music\\Song.mp3");
}

TEST_F(RealNamesTest, AreOfPathsWithDrivesOnly) {
  drives_.Write("a.mp3", "");
  for (const char* path : {"A.mp3", "\\A.mp3", "\\\\c\\A.mp3", "", "c:", "c:/A.mp3", "q:\\A.mp3"}) {
    EXPECT_EQ(RealOf(path), "none") << path;
  }
  std::string deep = "c:";
  for (int i = 0; i < 20'000; ++i) deep += "\\a";
  EXPECT_EQ(RealOf(deep), "none");
}

TEST_F(RealNamesTest, ListEachFolderOnce) {
  drives_.Write("Music/a.mp3", "");
  ListingFileSystem files(*files_);
  const auto names = FindNamesInAnyCase(files);
  for (int i = 0; i < 100; ++i) {
    EXPECT_EQ(names->Of("c:\\MUSIC\\A.MP3"), "c:\\Music\\a.mp3");
    EXPECT_EQ(names->Of("c:\\MUSIC\\gone " + std::to_string(i)), std::nullopt);
  }
  EXPECT_EQ(files.listed, 2) << "c: and Music";
}

TEST_F(RealNamesTest, OfOnePathIsThePathItselfWhereNothingElseIsThere) {
  drives_.Write("a.mp3", "");
  EXPECT_EQ(files_->RealName("c:\\A.mp3"), "c:\\a.mp3");
  EXPECT_EQ(files_->RealName("c:\\a.mp3"), "c:\\a.mp3");
  EXPECT_EQ(files_->RealName("c:\\gone.mp3"), "c:\\gone.mp3");
  EXPECT_FALSE(files_->Exists("c:\\A.mp3")) << "what is asked in general is exact";
}

}  // namespace
}  // namespace qublet

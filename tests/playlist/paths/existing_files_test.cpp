#include "playlist/paths/existing_files.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "playlist/paths/collections.h"
#include "support/counted_listings.h"
#include "support/temporary_drives.h"

namespace qublet {
namespace {

class ExistingFilesTest : public testing::Test {
 protected:
  const TemporaryDrives drives_;
  const std::unique_ptr<FileSystem> files_ = OpenFileSystem();
  const CountedListings counted_{*files_};
};

TEST_F(ExistingFilesTest, AnswersLikeFileExists) {
  drives_.Write("music/a.mp3", "x");
  drives_.Write("music/.hidden.mp3", "x");
  drives_.Write("music/inner/b.mp3", "x");
  const ExistingFiles existing(counted_);
  for (const char* path : {"c:\\music\\a.mp3", "c:\\music", "c:\\music\\*.MP3", "c:\\music\\?.mp3", "c:\\music\\in*",
                           "mus*", "c:\\music\\inner\\*", "c:\\music\\*.*"})
    EXPECT_TRUE(existing.Has(path)) << path;
  for (const char* path : {"", "c:\\music\\b.mp3", "c:\\music\\.hid*", "c:\\music\\*.ogg", "c:\\mus*\\a.mp3", "q:\\*",
                           "c:\\gone\\*", "c:\\music\\a.mp3\\*"})
    EXPECT_FALSE(existing.Has(path)) << path;
}

TEST_F(ExistingFilesTest, ListAFolderOnce) {
  drives_.Write("music/a.mp3", "x");
  drives_.Write("other/a.mp3", "x");
  const ExistingFiles existing(counted_);
  for (int i = 0; i < 10; ++i) {
    EXPECT_FALSE(existing.Has("c:\\music\\?" + std::to_string(i) + ".mp3"));
    EXPECT_TRUE(existing.Has("c:\\other\\*.mp" + std::string(static_cast<std::size_t>(i % 2), '?') + "*"));
  }
  EXPECT_EQ(counted_.Of("c:\\music\\"), 1);
  EXPECT_EQ(counted_.Of("c:\\other\\"), 1);
}

TEST_F(ExistingFilesTest, ListAFolderThatCanNotBeReadOnce) {
  const ExistingFiles existing(counted_);
  for (int i = 0; i < 10; ++i) EXPECT_FALSE(existing.Has("c:\\gone\\*.mp3"));
  EXPECT_EQ(counted_.OfAll(), 1);
}

TEST_F(ExistingFilesTest, ListNoFolderForNamesWithoutAPattern) {
  drives_.Write("music/a.mp3", "x");
  const ExistingFiles existing(counted_);
  EXPECT_TRUE(existing.Has("c:\\music\\a.mp3"));
  EXPECT_FALSE(existing.Has("c:\\music\\b.mp3"));
  EXPECT_FALSE(existing.Has("c:\\mus*\\a.mp3"));
  EXPECT_EQ(counted_.OfAll(), 0);
}

TEST_F(ExistingFilesTest, ListAFolderOnceForSeveralThreads) {
  drives_.Write("music/a.mp3", "x");
  const ExistingFiles existing(counted_);
  std::atomic<int> found{0};
  {
    std::vector<std::jthread> threads;
    for (int i = 0; i < 8; ++i) {
      threads.emplace_back([&] {
        for (int j = 0; j < 100; ++j) found += existing.Has("c:\\music\\*.mp3") ? 1 : 0;
      });
    }
  }
  EXPECT_EQ(found, 800);
  EXPECT_EQ(counted_.Of("c:\\music\\"), 1);
}

TEST_F(ExistingFilesTest, ServeWhatIsHandedToAPlayer) {
  drives_.Write("music/a.mp3", "x");
  Collection lines = {"c:\\music\\a.mp3"};
  for (int i = 0; i < 10; ++i) lines.push_back("c:\\music\\" + std::to_string(i) + "*.mp3");
  EXPECT_FALSE(KeepExistingFiles(counted_, lines));
  EXPECT_EQ(lines, Collection{"c:\\music\\a.mp3"});
  EXPECT_EQ(counted_.OfAll(), 1);
}

}  // namespace
}  // namespace qublet

#include "platform/file_system.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/temporary_drives.h"

namespace qublet {
namespace {

class FileSystemTest : public ::testing::Test {
 protected:
  static std::span<const std::uint8_t> Bytes(const std::string& text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
  }

  TemporaryDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
};

TEST_F(FileSystemTest, ListsNamesWithFoldersAndHiddenOnesMarked) {
  drives_.Write("music/a.mp3", "a");
  drives_.Write("music/.b.mp3", "b");
  drives_.Write("music/sub/c.mp3", "c");
  auto entries = files_->ReadFolder("c:\\music");
  std::sort(entries.begin(), entries.end(), [](const auto& a, const auto& b) { return a.name < b.name; });
  ASSERT_EQ(entries.size(), 3u);
  EXPECT_EQ(entries[0].name, ".b.mp3");
  EXPECT_TRUE(entries[0].hidden);
  EXPECT_EQ(entries[1].name, "a.mp3");
  EXPECT_FALSE(entries[1].is_folder);
  EXPECT_EQ(entries[2].name, "sub");
  EXPECT_TRUE(entries[2].is_folder);
}

TEST_F(FileSystemTest, ReplacesAFileAtCommit) {
  drives_.Write("list.m3u", "old");
  const auto next = files_->BeginReplacement("C:\\list.m3u");
  next->Write(Bytes("new text"));
  EXPECT_EQ(drives_.Read("list.m3u"), "old");
  next->Commit();
  EXPECT_EQ(drives_.Read("list.m3u"), "new text");
}

TEST_F(FileSystemTest, RenamesButNeverReplaces) {
  drives_.Write("a.mp3", "a");
  drives_.Write("b.mp3", "b");
  EXPECT_THROW(files_->Rename("c:\\a.mp3", "c:\\b.mp3"), Failure);
  files_->Rename("c:\\a.mp3", "d:\\c.mp3");
  EXPECT_EQ(drives_.ReadAt(drives_.D() / "c.mp3"), "a");
  EXPECT_FALSE(files_->Attributes("c:\\a.mp3"));
}

TEST_F(FileSystemTest, KnowsTheCurrentFolder) {
  EXPECT_EQ(files_->CurrentFolder(), "c:\\");
  drives_.Write("music/a.mp3", "abc");
  files_->SetCurrentFolder("C:\\music\\");
  EXPECT_EQ(files_->CurrentFolder(), "c:\\music");
  EXPECT_EQ(files_->FileLength("a.mp3"), 3);
  EXPECT_EQ(files_->FileLength("\\music\\a.mp3"), 3);
  EXPECT_EQ(files_->FromNative("a.mp3"), "c:\\music\\a.mp3");
}

}  // namespace
}  // namespace qublet

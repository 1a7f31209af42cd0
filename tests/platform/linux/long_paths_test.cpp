#include <gtest/gtest.h>
#include <limits.h>

#include <algorithm>

#include "platform/file_system.h"
#include "support/deep_tree.h"
#include "support/temporary_drives.h"

namespace qublet {
namespace {

class LongPathsTest : public testing::Test {
 protected:
  std::string Content(const std::string& path) const {
    const auto file = files_->OpenForReading(path);
    std::string content(static_cast<std::size_t>(file->Size()), '\0');
    file->ReadAt(0, {reinterpret_cast<std::uint8_t*>(content.data()), content.size()});
    return content;
  }

  TemporaryDrives drives_;
  const std::unique_ptr<FileSystem> files_ = OpenFileSystem();
};

TEST_F(LongPathsTest, AFileBeyondThemIsReadAsAnyOther) {
  DeepTree tree(drives_.C(), std::string(200, 'x'), 60);
  tree.Write("a.mp3", "sound");
  const std::string folder = tree.PathBelow("c:");
  const std::string path = folder + "\\a.mp3";
  ASSERT_GT(path.size(), std::size_t{2} * PATH_MAX);
  EXPECT_TRUE(files_->Exists(path));
  EXPECT_EQ(files_->FileLength(path), 5);
  EXPECT_EQ(files_->Attributes(path), std::optional<unsigned>(kArchive));
  EXPECT_EQ(Content(path), "sound");
  EXPECT_TRUE(files_->IsReadOnly(path)) << "what is written goes by the path";
  ASSERT_EQ(files_->ReadFolder(folder).size(), 1U);
  EXPECT_EQ(files_->ReadFolder(folder + "\\").front().name, "a.mp3");
  EXPECT_EQ(files_->Attributes(folder), std::optional<unsigned>(kFolder));
  EXPECT_EQ(files_->IdentityOf(folder), files_->Open(folder)->Identity());
  EXPECT_FALSE(files_->Exists(folder + "\\b.mp3"));
}

TEST_F(LongPathsTest, EveryLengthAroundTheLimitIsRead) {
  for (std::size_t name = 200; name < 240; ++name) {
    DeepTree tree(drives_.C(), std::string(name, 'x'), 20);
    tree.Write("a", "1");
    EXPECT_EQ(Content(tree.PathBelow("c:") + "\\a"), "1") << name;
    EXPECT_EQ(files_->ReadFolder(tree.PathBelow("c:") + "\\\\\\").size(), 1U) << name;
  }
}

TEST_F(LongPathsTest, ANameThatIsTooLongIsNone) {
  for (const std::string& path : {"c:\\" + std::string(5000, 'x'), "c:\\" + std::string(5000, 'x') + "\\a",
                                  "c:\\a\\" + std::string(70000, 'x'), std::string(70000, 'x')}) {
    EXPECT_FALSE(files_->Exists(path)) << path.size();
    EXPECT_THROW(files_->OpenForReading(path), Failure) << path.size();
    EXPECT_THROW(files_->ReadFolder(path), Failure) << path.size();
    EXPECT_EQ(files_->Open(path), nullptr) << path.size();
  }
}

}  // namespace
}  // namespace qublet

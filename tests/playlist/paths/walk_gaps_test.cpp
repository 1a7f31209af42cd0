#include <gtest/gtest.h>
#include <limits.h>

#include <filesystem>

#include "playlist/paths/folder_walk.h"
#include "support/deep_tree.h"
#include "support/ordinary_user.h"
#include "support/temporary_drives.h"

namespace qublet {
namespace {

class WalkGapsTest : public testing::Test {
 protected:
  WalkGaps Walk(const std::string& folder) {
    found_.clear();
    return WalkFolder(*files_, silent_, folder, FileFilters(), found_, true, true);
  }

  const TemporaryDrives drives_;
  const std::unique_ptr<FileSystem> files_ = OpenFileSystem();
  Feedback silent_;
  Collection found_;
};

TEST_F(WalkGapsTest, FoldersThatCanNotBeListedAreCounted) {
  for (const char* name : {"m/1.mp3", "m/a/2.mp3", "m/b/3.mp3", "m/b/in/4.mp3", "m/c/5.mp3"})
    drives_.Write(name, "x");
  for (const char* name : {"m/a", "m/b"})
    std::filesystem::permissions(drives_.C() / name, std::filesystem::perms::none);
  {
    const OrdinaryUser user(drives_.Root());
    const WalkGaps gaps = Walk("c:\\m");
    EXPECT_EQ(gaps.unlisted, 2U);
    EXPECT_EQ(gaps.too_far, 0U);
    EXPECT_EQ(found_, (Collection{"c:\\m\\1.mp3", "c:\\m\\c\\5.mp3"}));
    EXPECT_EQ(Walk("c:\\m\\a").unlisted, 1U) << "the first one too";
  }
  for (const char* name : {"m/a", "m/b"})
    std::filesystem::permissions(drives_.C() / name, std::filesystem::perms::owner_all);
}

TEST_F(WalkGapsTest, NothingIsMissingWhereAllIsListed) {
  for (const char* name : {"m/1.mp3", "m/a/2.mp3", "m/.hidden/3.mp3"}) drives_.Write(name, "x");
  std::filesystem::create_directory_symlink(drives_.C() / "m", drives_.C() / "m" / "a" / "up");
  const WalkGaps gaps = Walk("c:\\m");
  EXPECT_EQ(gaps.unlisted, 0U) << "a folder among its own parents isn't left out: it is there already";
  EXPECT_EQ(gaps.too_far, 0U);
}

TEST_F(WalkGapsTest, AFolderThatIsGoneIsCounted) {
  EXPECT_EQ(Walk("c:\\gone").unlisted, 1U);
}

TEST_F(WalkGapsTest, LongPathsAreWalked) {
  DeepTree tree(drives_.C(), std::string(200, 'x'), 100);
  tree.Write("a.mp3", "x");
  const std::string path = tree.PathBelow("c:") + "\\a.mp3";
  ASSERT_GT(path.size(), std::size_t{4} * PATH_MAX);
  const WalkGaps gaps = Walk("c:");
  EXPECT_EQ(found_, Collection{path});
  EXPECT_EQ(gaps.unlisted + gaps.too_far, 0U);
}

TEST_F(WalkGapsTest, LongPathsEndWhereTheBoundIs) {
  DeepTree tree(drives_.C(), std::string(250, 'x'), 140);
  tree.Write("a.mp3", "x");
  drives_.Write("b.mp3", "x");
  ASSERT_GT(tree.PathBelow("c:").size(), WalkBounds::kMostPathBytes);
  const WalkGaps gaps = Walk("c:");
  EXPECT_EQ(found_, Collection{"c:\\b.mp3"});
  EXPECT_EQ(gaps.too_far, 1U);
  EXPECT_EQ(gaps.unlisted, 0U);
}

TEST_F(WalkGapsTest, AFileWhosePathIsTooLongIsCounted) {
  // The folder's path fits, the file's doesn't.
  constexpr int kName = 250;
  constexpr auto kDepth = static_cast<int>(WalkBounds::kMostPathBytes) / (kName + 1);
  DeepTree tree(drives_.C(), std::string(kName, 'x'), kDepth);
  tree.Write(std::string(200, 'a') + ".mp3", "x");
  tree.Write("a.mp3", "x");
  ASSERT_LE(tree.PathBelow("c:").size() + 6, WalkBounds::kMostPathBytes);
  const WalkGaps gaps = Walk("c:");
  EXPECT_EQ(found_, Collection{tree.PathBelow("c:") + "\\a.mp3"});
  EXPECT_EQ(gaps.too_far, 1U);
}

TEST_F(WalkGapsTest, FoldersEndAtTheDepthOfTheBound) {
  for (const int more : {0, 1}) {
    DeepTree tree(drives_.C(), "d", static_cast<int>(WalkBounds::kMostDepth) + more);
    tree.Write("a.mp3", "x");
    EXPECT_EQ(Walk("c:").too_far, static_cast<std::size_t>(more));
    EXPECT_EQ(found_.size(), more == 0 ? 1U : 0U);
  }
}

}  // namespace
}  // namespace qublet

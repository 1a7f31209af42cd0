#include <filesystem>

#include "support/deep_tree.h"
#include "support/list_test_base.h"
#include "support/ordinary_user.h"

namespace qublet {
namespace {

// Folders that are added, as far as they can be listed.
using WhatIsLeftOutTest = ListTestBase;

TEST_F(WhatIsLeftOutTest, FoldersThatCanNotBeListedAreAPassingRemark) {
  Touch({"m/1.mp3", "m/shut/2.mp3"});
  std::filesystem::permissions(drives_.C() / "m" / "shut", std::filesystem::perms::none);
  {
    const OrdinaryUser user(drives_.Root());
    EXPECT_TRUE(items_.AddStuff("c:\\m", false));
  }
  std::filesystem::permissions(drives_.C() / "m" / "shut", std::filesystem::perms::owner_all);
  EXPECT_EQ(Names(), "1.mp3");
  EXPECT_EQ(feedback_.remarks, Collection{"1 folder can't be listed"});
  EXPECT_EQ(items_.LastLeftOut().walk.unlisted, 1U);
  EXPECT_TRUE(items_.AddStuff("c:\\m", false));
  EXPECT_EQ(feedback_.remarks.size(), 1U) << "all of it could be listed";
}

TEST_F(WhatIsLeftOutTest, LongPathsAreARemarkWhereTheyEnd) {
  const DeepTree tree(drives_.C(), std::string(250, 'x'), 140);
  Touch({"1.mp3"});
  EXPECT_TRUE(items_.AddStuff("c:", false));
  EXPECT_EQ(feedback_.remarks, Collection{"1 path is too long"});
}

TEST_F(WhatIsLeftOutTest, LongPathsMakeRowsLikeOthers) {
  DeepTree tree(drives_.C(), std::string(200, 'x'), 60);
  tree.Write("1.mp3", TextOf(Frames(100)));
  EXPECT_TRUE(items_.AddStuff("c:", false));
  ASSERT_EQ(Rows().Count(), 1);
  EXPECT_EQ(Rows().At(1).FullPath(), tree.PathBelow("c:") + "\\1.mp3");
  EXPECT_EQ(Rows().At(1).icon, RowIcon::kNormal);
  EXPECT_EQ(Rows().At(1).cells[kTime], "0:03");
  EXPECT_EQ(feedback_.remarks, Collection{});
}

}  // namespace
}  // namespace qublet

#include "playlist/selection.h"

#include <gtest/gtest.h>

#include "support/list_test_base.h"

namespace qublet {
namespace {

class RemoveItem : public ListTestBase {
 protected:
  RemoveItem() {
    Touch({"1.mp3", "2.mp3", "3.mp3", "4.mp3"});
    items_.AddStuff("c:\\", false);
    document_.PlaylistChanged = false;
  }
  void Select(const std::string& letters) {
    Rows().SelectWhere([&](int index, const Row&) { return letters.at(static_cast<std::size_t>(index - 1)) == 'x'; });
  }
};

TEST_F(RemoveItem, TakesTheSelectedRowsAndLeavesTheFiles) {
  Select("x-x-");
  RemoveSelectedRows(document_);
  EXPECT_EQ(Names(), "2.mp3 4.mp3");
  EXPECT_EQ(Orders(), "2 4") << "the numbers of the others stay";
  EXPECT_EQ(Selection(), "--");
  EXPECT_TRUE(document_.PlaylistChanged);
  EXPECT_TRUE(std::filesystem::exists(drives_.C() / "1.mp3"));
}

TEST_F(RemoveItem, LeavesAChangedEmptyListBehindAllRows) {
  Select("xxxx");
  RemoveSelectedRows(document_);
  EXPECT_EQ(Rows().Count(), 0);
  EXPECT_TRUE(document_.PlaylistChanged);
}

TEST_F(RemoveItem, ChangesNothingWithoutASelection) {
  RemoveSelectedRows(document_);
  EXPECT_EQ(Rows().Count(), 4);
  EXPECT_FALSE(document_.PlaylistChanged);
}

}  // namespace
}  // namespace qublet

#include "platform/held_file.h"

#include <gtest/gtest.h>

#include "support/file_system_test_base.h"

namespace qublet {
namespace {

class HeldFileTest : public FileSystemTestBase {
 protected:
  bool IsThere() const { return std::filesystem::exists(drives_.C() / "a.lock"); }
};

TEST_F(HeldFileTest, HasOneHolderAtATime) {
  std::unique_ptr<HeldFile> first = HoldFile(*files_, "c:\\a.lock");
  ASSERT_TRUE(first);
  EXPECT_TRUE(IsThere());
  EXPECT_FALSE(HoldFile(*files_, "c:\\a.lock"));
  first.reset();
  EXPECT_TRUE(HoldFile(*files_, "c:\\a.lock"));
}

TEST_F(HeldFileTest, GoesWithItsHolder) {
  HoldFile(*files_, "c:\\a.lock");
  EXPECT_FALSE(IsThere());
}

TEST_F(HeldFileTest, IsHeldAgainWhenAKilledProcessLeftIt) {
  drives_.Write("a.lock", "");
  EXPECT_TRUE(HoldFile(*files_, "c:\\a.lock"));
  EXPECT_FALSE(IsThere());
}

TEST_F(HeldFileTest, FailsWhereItCannotBeMade) {
  EXPECT_THROW(HoldFile(*files_, "c:\\gone\\a.lock"), Failure);
  EXPECT_THROW(HoldFile(*files_, "q:\\a.lock"), Failure);
}

}  // namespace
}  // namespace qublet

#include "platform/file_time.h"

#include <gtest/gtest.h>

#include "support/file_system_test_base.h"

namespace qublet {
namespace {

using FileTimeTest = FileSystemTestBase;

TEST_F(FileTimeTest, TellsWhichFileIsNewer) {
  drives_.Write("old \xC3\xA9.m3u", "a");
  drives_.Write("new.m3u", "b");
  const std::filesystem::path old = drives_.C() / TemporaryDrives::PathOf("old \xC3\xA9.m3u");
  std::filesystem::last_write_time(old, std::filesystem::last_write_time(old) - std::chrono::seconds(60));
  ASSERT_TRUE(LastWrite(*files_, "c:\\old \xC3\xA9.m3u"));
  EXPECT_LT(*LastWrite(*files_, "c:\\old \xC3\xA9.m3u"), *LastWrite(*files_, "c:\\new.m3u"));
}

TEST_F(FileTimeTest, TellsNothingOfWhatIsNotThere) {
  EXPECT_FALSE(LastWrite(*files_, "c:\\gone.m3u"));
  EXPECT_FALSE(LastWrite(*files_, "q:\\gone.m3u"));
  EXPECT_FALSE(LastWrite(*files_, ""));
}

}  // namespace
}  // namespace qublet

#include "platform/absent_places.h"

#include <gtest/gtest.h>

#include "support/file_system_test_base.h"

namespace qublet {
namespace {

class UnreachableRootsTest : public FileSystemTestBase {};

TEST_F(UnreachableRootsTest, NamesDrivesAndSharesThatCantBeReached) {
  const auto places = files_->FindAbsentPlaces();
  EXPECT_EQ(places->Of("q:\\music\\a.mp3"), "q:");
  EXPECT_EQ(places->Of("Q:\\a.mp3"), "q:");
  EXPECT_EQ(places->Of("c:\\gone\\a.mp3"), "");
  EXPECT_EQ(places->Of("\\\\nowhere.invalid\\share\\music\\a.mp3"), "\\\\nowhere.invalid\\share");
  for (const char* path : {"", "music\\a.mp3", "a.mp3"}) EXPECT_EQ(places->Of(path), "") << path;
}

}  // namespace
}  // namespace qublet

#include "platform/file_address.h"

#include <gtest/gtest.h>

namespace qublet {
namespace {

TEST(FileAddress, EscapesAllThatIsNoPlainCharacter) {
  EXPECT_EQ(FileAddress("/m/a b#100%?\xC3\xA9.mp3"), "file:///m/a%20b%23100%25%3F%C3%A9.mp3");
  EXPECT_EQ(FileAddress("/m/it-is_~1.mp3"), "file:///m/it-is_~1.mp3");
}

}  // namespace
}  // namespace qublet

#include "platform/linux/file_manager.h"

#include <gtest/gtest.h>

#include "support/private_bus.h"

namespace qublet {
namespace {

class FileManagerTest : public testing::Test {
 protected:
  std::filesystem::path Log() const { return desktop_.Drives().Root() / "log"; }

  TemporaryDesktop desktop_;
  PrivateBus bus_{desktop_};
  MessageBus session_;
};

TEST_F(FileManagerTest, IsAskedForTheWindowAboutAFile) {
  const ChildProcess manager({"/usr/bin/python3", QUBLET_FAKE_FILE_MANAGER, Log().string()});
  ASSERT_TRUE(Eventually([&] { return TemporaryDrives::ReadAt(Log()) == "ready\n"; }));
  EXPECT_TRUE(ShowItemProperties(session_, "/m/a b.mp3"));
  EXPECT_TRUE(ShowItemProperties(session_, "/m/c.mp3", "start-1"));
  EXPECT_EQ(TemporaryDrives::ReadAt(Log()), "ready\nfile:///m/a%20b.mp3\nfile:///m/c.mp3 start-1\n");
}

TEST_F(FileManagerTest, IsMissedAtOnceWhereThereIsNone) {
  EXPECT_FALSE(ShowItemProperties(session_, "/m/a.mp3"));
}

TEST_F(FileManagerTest, IsMissedWithoutABus) {
  bus_.Stop();
  EXPECT_FALSE(ShowItemProperties(session_, "/m/a.mp3"));
}

}  // namespace
}  // namespace qublet

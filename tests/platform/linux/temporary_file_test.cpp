#include "platform/linux/temporary_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <thread>

#include "platform/linux/file_system_kind.h"
#include "support/file_system_test_base.h"

namespace qublet {
namespace {

namespace fs = std::filesystem;

class TemporaryFileTest : public FileSystemTestBase {
 protected:
  void SetUp() override {
    if (!LocksHoldForAll(folder_.Get())) GTEST_SKIP() << "locks are not trusted on this file system";
  }

  TemporaryFile Make(const std::string& target = "list.m3u") const {
    return MakeTemporaryFile(folder_, target, 0600);
  }
  // The file stays, as after a kill; gives its name.
  std::string Leave(const std::string& target = "list.m3u") const { return Make(target).name; }

  const Descriptor folder_ = OpenAt(AT_FDCWD, drives_.C(), O_RDONLY | O_DIRECTORY);
};

TEST_F(TemporaryFileTest, TakesThePlaceOfOneThatWasLeft) {
  const std::string left = Leave();
  drives_.Write(left, "half a list");
  const TemporaryFile next = Make();
  EXPECT_EQ(next.name, left);
  EXPECT_EQ(drives_.Read(left), "");
  EXPECT_EQ(NamesIn("c:\\"), Names{left});
}

TEST_F(TemporaryFileTest, TakesThePlaceOfOneThatWasLeftReadOnly) {
  const std::string left = Leave();
  fs::permissions(drives_.C() / left, fs::perms::owner_read);
  EXPECT_EQ(Make().name, left);
  EXPECT_EQ(fs::status(drives_.C() / left).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(TemporaryFileTest, HasANameOfItsOwnForEveryTarget) {
  Names names;
  for (const std::string& target : {std::string("a.mp3"), std::string("A.mp3"), std::string("b.mp3"),
                                    std::string(255, 'x'), std::string(254, 'x') + "y", std::string("\xFF")}) {
    names.push_back(Leave(target));
  }
  std::sort(names.begin(), names.end());
  EXPECT_EQ(NamesIn("c:\\"), names);
  EXPECT_EQ(std::unique(names.begin(), names.end()), names.end());
}

TEST_F(TemporaryFileTest, LeavesOneAloneThatIsStillWritten) {
  const TemporaryFile first = Make();
  const TemporaryFile second = Make();
  const TemporaryFile third = Make();
  Names names = {first.name, second.name, third.name};
  std::sort(names.begin(), names.end());
  EXPECT_EQ(NamesIn("c:\\"), names);
  EXPECT_EQ(StatusOf(first.file).st_nlink, 1u);
}

TEST_F(TemporaryFileTest, LeavesWhatIsNoFileAlone) {
  const std::string name = Leave();
  const fs::path place = drives_.C() / name;
  drives_.Write("precious.mp3", "precious");
  const auto expect_kept = [&](fs::file_type type) {
    EXPECT_NE(Make().name, name);
    EXPECT_EQ(fs::symlink_status(place).type(), type);
    fs::remove(place);
  };
  fs::remove(place);
  fs::create_symlink("precious.mp3", place);
  expect_kept(fs::file_type::symlink);
  fs::create_directory(place);
  expect_kept(fs::file_type::directory);
  ASSERT_EQ(mkfifo(place.c_str(), 0600), 0);
  expect_kept(fs::file_type::fifo);
  EXPECT_EQ(drives_.Read("precious.mp3"), "precious");
}

TEST_F(TemporaryFileTest, LeavesTheTargetOfAHalfMovedFile) {
  const std::string left = Leave();
  drives_.Write(left, "moved");
  fs::create_hard_link(drives_.C() / left, drives_.C() / "list.m3u");
  const TemporaryFile next = Make();
  EXPECT_EQ(drives_.Read("list.m3u"), "moved");
  EXPECT_EQ(drives_.Read(next.name), "");
}

TEST_F(TemporaryFileTest, StaysWholeWhileManyReplaceOneFile) {
  constexpr int kWriters = 4;
  constexpr int kRounds = 60;
  std::atomic<int> torn = 0;
  std::vector<std::thread> writers;
  for (int writer = 0; writer < kWriters; ++writer) {
    writers.emplace_back([&, writer] {
      const std::string content(100000, static_cast<char>('a' + writer));
      for (int round = 0; round < kRounds; ++round) {
        Replace("c:\\list.m3u", content);
        const std::string read = drives_.Read("list.m3u");
        torn += read.size() == content.size() && read.find_first_not_of(read[0]) == read.npos ? 0 : 1;
      }
    });
  }
  for (std::thread& writer : writers) writer.join();
  EXPECT_EQ(torn, 0);
  EXPECT_EQ(NamesIn("c:\\"), Names{"list.m3u"});
}

// Each tries to take the others' files for left in the moment between their making and their locking.
TEST_F(TemporaryFileTest, IsOwnedByOneOnly) {
  constexpr int kRounds = 3000;
  std::atomic<int> lost = 0;
  std::vector<std::thread> makers;
  for (int maker = 0; maker < 4; ++maker) {
    makers.emplace_back([&] {
      for (int round = 0; round < kRounds; ++round) {
        const TemporaryFile made = Make();
        std::this_thread::yield();
        lost += StatusOf(made.file).st_nlink == 1 && unlinkat(folder_.Get(), made.name.c_str(), 0) == 0 &&
                        StatusOf(made.file).st_nlink == 0
                    ? 0
                    : 1;
      }
    });
  }
  for (std::thread& maker : makers) maker.join();
  EXPECT_EQ(lost, 0);
  Leave();
  const TemporaryFile last = Make();
  EXPECT_EQ(NamesIn("c:\\"), Names{last.name});
}

TEST(FileSystemKind, TrustsLocksOnADiskOnly) {
  const Descriptor process = OpenAt(AT_FDCWD, "/proc", O_RDONLY | O_DIRECTORY);
  EXPECT_TRUE(ShowsTheKernel(process.Get()));
  EXPECT_FALSE(LocksHoldForAll(process.Get()));
  const Descriptor folder = OpenAt(AT_FDCWD, fs::temp_directory_path(), O_RDONLY | O_DIRECTORY);
  EXPECT_FALSE(ShowsTheKernel(folder.Get()));
  EXPECT_FALSE(LocksHoldForAll(-1));
}

}  // namespace
}  // namespace qublet

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <sched.h>

#include "platform/linux/descriptor.h"
#include "platform/linux/linux_file_system_test_base.h"

namespace qublet {
namespace {

namespace fs = std::filesystem;

constexpr std::int64_t kMebibyte = 1 << 20;

class HolesTest : public LinuxFileSystemTest {
 protected:
  // Bytes at both ends and in the middle, holes between; 16 MiB.
  void WriteSparse(const std::string& name) const {
    const Descriptor file(open((drives_.C() / name).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644));
    for (const std::int64_t offset : {std::int64_t{0}, 5 * kMebibyte + 123, 12 * kMebibyte})
      WriteFullyAt(file, offset, BytesOf(LongContent()));
    ASSERT_EQ(ftruncate(file.Get(), 16 * kMebibyte), 0);
  }
  std::int64_t RoomOf(const std::string& name) const { return StatusOf(name).st_blocks * std::int64_t{512}; }
  bool KnowsHoles() const { return RoomOf("sparse.mp3") < 2 * kMebibyte; }
};

TEST_F(HolesTest, AreKeptInACopy) {
  WriteSparse("sparse.mp3");
  if (!KnowsHoles()) GTEST_SKIP() << "not on this file system";
  files_->CopyFile("c:\\sparse.mp3", "c:\\copy.mp3");
  EXPECT_EQ(drives_.Read("copy.mp3"), drives_.Read("sparse.mp3"));
  EXPECT_LT(RoomOf("copy.mp3"), 2 * kMebibyte);
}

TEST_F(HolesTest, AreKeptInANewVersionWithABeginningOfAnotherLength) {
  WriteSparse("sparse.mp3");
  if (!KnowsHoles()) GTEST_SKIP() << "not on this file system";
  const std::string before = drives_.Read("sparse.mp3");
  const auto source = files_->OpenForReading("c:\\sparse.mp3");
  const auto next = files_->BeginReplacement("c:\\sparse.mp3");
  next->Write(BytesOf("tag"));
  next->CopyFrom(*source, 5, 10 * kMebibyte);
  next->CopyFrom(*source, 10 * kMebibyte, 6 * kMebibyte);
  next->Write(BytesOf("end"));
  next->Commit();
  EXPECT_EQ(drives_.Read("sparse.mp3"),
            "tag" + before.substr(5, 10 * kMebibyte) + before.substr(10 * kMebibyte, 6 * kMebibyte) + "end");
  EXPECT_LT(RoomOf("sparse.mp3"), 2 * kMebibyte);
}

TEST_F(HolesTest, AreKeptWhereZerosAreWrittenAgain) {
  WriteSparse("sparse.mp3");
  if (!KnowsHoles()) GTEST_SKIP() << "not on this file system";
  const std::string content = drives_.Read("sparse.mp3");
  for (const char* name : {"sparse.mp3", "dense.mp3"}) {
    if (!fs::exists(drives_.C() / name)) drives_.Write(name, content);
    const auto next = files_->BeginReplacement(std::string("c:\\") + name);
    next->Write(BytesOf("tag"));
    next->Write(BytesOf(content));
    next->Write(BytesOf(std::string(kMebibyte, '\0')));
    next->Commit();
    EXPECT_TRUE(drives_.Read(name) == "tag" + content + std::string(kMebibyte, '\0')) << name;
  }
  EXPECT_LT(RoomOf("sparse.mp3"), 2 * kMebibyte);
  EXPECT_GE(RoomOf("dense.mp3"), 16 * kMebibyte) << "what was written stays written";
}

TEST_F(HolesTest, AreNotTakenForWhatASourceHasLost) {
  WriteSparse("sparse.mp3");
  const auto source = files_->OpenForReading("c:\\sparse.mp3");
  const auto next = files_->BeginReplacement("c:\\copy.mp3");
  fs::resize_file(drives_.C() / "sparse.mp3", 15 * kMebibyte);
  EXPECT_THROW(next->CopyFrom(*source, 0, 16 * kMebibyte), Failure);
}

// In a process that alone sees a disk of one mebibyte mounted in place of d:.
int OnASmallDisk(const fs::path& place, const std::function<int()>& work) {
  const pid_t child = fork();
  if (child == 0) {
    const bool mounted = unshare(CLONE_NEWNS) == 0 && mount("", "/", "", MS_REC | MS_PRIVATE, nullptr) == 0 &&
                         mount("small", place.c_str(), "tmpfs", 0, "size=1m") == 0;
    _exit(mounted ? work() : 77);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(HolesTest, NothingIsWrittenOfACopyThatHasNoRoom) {
  drives_.Write("big.mp3", LongContent(3 * kMebibyte));
  const int code = OnASmallDisk(drives_.D(), [&] {
    const auto source = files_->OpenForReading("c:\\big.mp3");
    const auto next = files_->BeginReplacement("d:\\big.mp3");
    const Outcome copied = Attempt([&] { next->CopyFrom(*source, 0, source->Size()); });
    if (copied.Reason() != "no space left") return 1;
    if (next->OpenWritten()->Size() != 0) return 2;
    if (Guarded([&] { files_->CopyFile("c:\\big.mp3", "d:\\big.mp3"); })) return 3;
    return Guarded([&] { next->CopyFrom(*source, 0, kMebibyte / 2); }) ? 0 : 4;
  });
  if (code == 77) GTEST_SKIP() << "this user can't mount a small disk";
  EXPECT_EQ(code, 0);
}

TEST_F(HolesTest, NeedNoRoomThemselves) {
  const std::string place = (drives_.C() / "sparse.mp3").string();
  drives_.Write("sparse.mp3", "beginning");
  fs::resize_file(place, 100 * kMebibyte);
  if (RoomOf("sparse.mp3") > kMebibyte / 2) GTEST_SKIP() << "no holes on this file system";
  const int code = OnASmallDisk(
      drives_.D(), [&] { return Guarded([&] { files_->CopyFile("c:\\sparse.mp3", "d:\\sparse.mp3"); }) ? 0 : 1; });
  if (code == 77) GTEST_SKIP() << "this user can't mount a small disk";
  EXPECT_EQ(code, 0);
}

}  // namespace
}  // namespace qublet

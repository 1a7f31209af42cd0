#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/faults.h"
#include "support/tag_bytes.h"
#include "support/temporary_drives.h"

// How much memory `qublet` takes for files that claim much, and what it does where there is too little.

namespace qublet {
namespace {

constexpr std::size_t kMiB = 1 << 20;

// Bytes on the disk.
std::size_t RoomOf(const std::filesystem::path& file) {
  struct stat status {};
  if (stat(file.c_str(), &status) != 0) throw std::runtime_error("stat");
  return static_cast<std::size_t>(status.st_blocks) * 512;
}

struct Ended {
  int code = -1;  // -1 for a program that was killed or gave up
  std::size_t most_memory = 0;
  std::string text;
};

// The program with no more address space than that; 0 for any.
Ended RunQublet(const std::vector<std::string>& arguments, std::size_t address_space = 0) {
  const std::string program = TestProgram("qublet").string();
  std::vector<char*> words{const_cast<char*>(program.c_str())};
  for (const std::string& argument : arguments) words.push_back(const_cast<char*>(argument.c_str()));
  words.push_back(nullptr);
  int out[2];
  if (pipe2(out, O_CLOEXEC) != 0) throw std::runtime_error("pipe");
  const pid_t process = fork();
  if (process == 0) {
    dup2(out[1], 1);
    dup2(out[1], 2);
    const rlimit limit{address_space, address_space};
    if (address_space != 0) setrlimit(RLIMIT_AS, &limit);
    execv(words[0], words.data());
    _exit(127);
  }
  close(out[1]);
  Ended ended;
  char piece[4096];
  for (ssize_t count; (count = read(out[0], piece, sizeof piece)) > 0;)
    ended.text.append(piece, static_cast<std::size_t>(count));
  close(out[0]);
  int status = 0;
  rusage used{};
  wait4(process, &status, 0, &used);
  ended.most_memory = static_cast<std::size_t>(used.ru_maxrss) * 1024;
  if (WIFEXITED(status)) ended.code = WEXITSTATUS(status);
  return ended;
}

class MemoryTest : public testing::Test {
 protected:
  void SetUp() override {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "what a sanitizer keeps for itself isn't the program's";
#endif
  }

  // A song whose tag holds one frame of so many bytes, all zeros behind its start, that take no room on the disk.
  void WriteSparseFrame(const std::string& name, const std::string& id, const std::string& start, std::size_t size,
                        char flags = 0) const {
    const std::string title = TextFrameBytes(3, "TIT2", "Small title");
    const std::size_t body = title.size() + 10 + size;
    const std::string head =
        std::string("ID3\x03\0", 5) + flags + NumberBytes(static_cast<std::uint32_t>(body), 4, 7);
    const std::string frame = id + NumberBytes(static_cast<std::uint32_t>(size), 4) + std::string(2, '\0') + start;
    drives_.WriteSparse(name, head + title + frame, 10 + body);
    std::ofstream(drives_.C() / name, std::ios::binary | std::ios::app) << AudioBytes();
  }

  TemporaryDrives drives_;
};

TEST_F(MemoryTest, AFrameOf200MebibytesIsKeptOnce) {
  WriteSparseFrame("text.mp3", "TALB", "", 200 * kMiB);
  WriteSparseFrame("comment.mp3", "COMM", std::string("\0eng", 4), 200 * kMiB);
  WriteSparseFrame("other.mp3", "PRIV", "", 200 * kMiB);
  WriteSparseFrame("cover.mp3", "APIC", std::string("\0image/jpeg\0\3\0\xFF\xD8\xFF\xE0", 18), 200 * kMiB);
  for (const char* name : {"text.mp3", "comment.mp3", "other.mp3", "cover.mp3"}) {
    const Ended ended = RunQublet({"tag", std::string("c:\\") + name});
    EXPECT_EQ(ended.code, 0) << ended.text;
    EXPECT_NE(ended.text.find("Small title"), std::string::npos) << name;
    EXPECT_LT(ended.most_memory, 300 * kMiB) << name;
  }
}

// The old tag and the new one, and what stays the same in both.
TEST_F(MemoryTest, ATagOf200MebibytesIsChangedInThreeTimesItsSize) {
  WriteSparseFrame("text.mp3", "TALB", "", 200 * kMiB);
  WriteSparseFrame("cover.mp3", "APIC", std::string("\0image/jpeg\0\3\0\xFF\xD8\xFF\xE0", 18), 200 * kMiB);
  constexpr char kUnsynchronised = '\x80';
  WriteSparseFrame("unsynchronised.mp3", "PRIV", std::string("a\0", 2), 200 * kMiB, kUnsynchronised);
  for (const std::string name : {"text.mp3", "cover.mp3", "unsynchronised.mp3"}) {
    const auto place = drives_.C() / name;
    const std::size_t room = RoomOf(place);
    const Ended changed = RunQublet({"tag", "--set", "TIT2=New", "c:\\" + name});
    EXPECT_EQ(changed.code, 0) << changed.text;
    EXPECT_LT(changed.most_memory, (name == "unsynchronised.mp3" ? 1100 : 640) * kMiB) << name;
    EXPECT_GT(std::filesystem::file_size(place), 200 * kMiB) << "nothing was cut off";
    EXPECT_LT(RoomOf(place), room + 4 * kMiB) << name;
  }
}

TEST_F(MemoryTest, AListCostsNothingOfTheTags) {
  WriteSparseFrame("text.mp3", "TALB", "", 200 * kMiB);
  const Ended ended = RunQublet({"list", "c:\\text.mp3"});
  EXPECT_EQ(ended.code, 0) << ended.text;
  EXPECT_LT(ended.most_memory, 60 * kMiB);
}

TEST_F(MemoryTest, WantOfMemoryEndsTheWorkOnOneFile) {
  WriteSparseFrame("large.mp3", "TALB", "", 200 * kMiB);
  drives_.Write("small.mp3", TagBytes(3, TextFrameBytes(3, "TIT2", "After it")) + AudioBytes());
  constexpr std::size_t kRoom = 150 * kMiB;
  const Ended read = RunQublet({"tag", "c:\\large.mp3", "c:\\small.mp3"}, kRoom);
  EXPECT_EQ(read.code, 1) << read.text;
  EXPECT_NE(read.text.find("not enough memory"), std::string::npos) << read.text;
  EXPECT_NE(read.text.find("After it"), std::string::npos) << read.text;
  const Ended changed = RunQublet({"tag", "--set", "TIT2=New", "c:\\large.mp3", "c:\\small.mp3"}, kRoom);
  EXPECT_EQ(changed.code, 1) << changed.text;
  EXPECT_NE(drives_.Read("small.mp3").find("New"), std::string::npos);
}

TEST_F(MemoryTest, WantOfMemoryEndsNoBatch) {
  std::vector<std::string> arguments{"list"};
  for (int i = 0; i < 100; ++i) {
    drives_.Write(std::to_string(i) + ".mp3", TagBytes(3, TextFrameBytes(3, "TIT2", "Title")) + AudioBytes());
    arguments.push_back("c:\\" + std::to_string(i) + ".mp3");
  }
  drives_.WriteSparse("large.m3u", "c:\\1.mp3\r\n", 200 * kMiB);
  arguments.push_back("c:\\large.m3u");
  const Ended ended = RunQublet(arguments, 150 * kMiB);
  EXPECT_GE(ended.code, 0) << ended.text;
  EXPECT_NE(ended.text.find("99.mp3"), std::string::npos);
}

TEST_F(MemoryTest, WantOfMemoryLosesNoRow) {
  drives_.Write("song.mp3", AudioBytes());
  std::string list;
  for (int i = 0; i < 3000; ++i) list += "c:\\song.mp3\r\n";
  for (std::size_t room = 24 * kMiB; room < 64 * kMiB; room += kMiB) {
    drives_.Write("list.m3u", list);
    const Ended ended = RunQublet({"save", "--replace", "c:\\list.m3u", "c:\\list.m3u"}, room);
    EXPECT_GE(ended.code, 0) << room << ": " << ended.text;
    EXPECT_TRUE(ended.code == 0 || !ended.text.empty()) << room;
    EXPECT_EQ(drives_.Read("list.m3u"), list) << room;
  }
}

}  // namespace
}  // namespace qublet

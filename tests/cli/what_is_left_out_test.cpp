#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>

#include "playlist/paths/playlist_bounds.h"
#include "support/cli_test_base.h"
#include "support/deep_tree.h"
#include "support/faults.h"
#include "support/ordinary_user.h"

namespace qublet {
namespace {

class WhatIsLeftOut : public CliTestBase {
 protected:
  WhatIsLeftOut() {
    Touch({"m/1.mp3", "m/a/2.mp3", "m/b/3.mp3"});
    drives_.Write("long.m3u", "c:\\" + std::string(PlaylistBounds::kMostLineBytes, 'x') + ".mp3\r\nc:\\m\\1.mp3\r\n");
  }
  ~WhatIsLeftOut() override { Shut(std::filesystem::perms::owner_all); }

  void Shut(std::filesystem::perms mode) const {
    for (const char* name : {"m/a", "m/b"}) std::filesystem::permissions(drives_.C() / name, mode);
  }
  int RunWhereFoldersAreShut(const Arguments& arguments) {
    std::filesystem::create_directories(drives_.C() / "out");
    Shut(std::filesystem::perms::none);
    const OrdinaryUser user(drives_.Root());
    return Run(arguments);
  }
  static constexpr const char* kTwoFolders = "qublet: c:\\m: 2 folders can't be listed\n";
  static constexpr const char* kLongLine = "qublet: c:\\long.m3u: 1 line is longer than 32 KiB and left out\n";
};

TEST_F(WhatIsLeftOut, FoldersThatCanNotBeListedAreToldBesideTheRows) {
  EXPECT_EQ(RunWhereFoldersAreShut({"list", "c:\\m"}), 1);
  EXPECT_EQ(Err(), kTwoFolders);
  EXPECT_TRUE(Out().find("1.mp3") != std::string::npos);
}

TEST_F(WhatIsLeftOut, FoldersThatCanNotBeListedKeepNoOtherFileOutOfAPlaylist) {
  EXPECT_EQ(RunWhereFoldersAreShut({"save", "c:\\out\\out.m3u", "c:\\m"}), 1);
  EXPECT_EQ(Err(), kTwoFolders);
  EXPECT_EQ(drives_.Read("out/out.m3u"), "c:\\m\\1.mp3\r\n");
}

TEST_F(WhatIsLeftOut, FoldersThatCanNotBeListedAreToldBesideAReport) {
  EXPECT_EQ(RunWhereFoldersAreShut({"report", "c:\\out\\out.htm", "c:\\m"}), 1);
  EXPECT_EQ(Err(), kTwoFolders);
  EXPECT_TRUE(std::filesystem::exists(drives_.C() / "out" / "out.htm"));
}

TEST_F(WhatIsLeftOut, FoldersThatCanNotBeListedAreToldBesideWhatIsRestored) {
  drives_.Write("gone.m3u", "c:\\gone\\1.mp3\r\n");
  EXPECT_EQ(RunWhereFoldersAreShut({"restore", "--in", "c:\\m", "c:\\gone.m3u"}), 1);
  EXPECT_EQ(Err(), "qublet: restore: 2 folders can't be listed\n");
  EXPECT_EQ(Out(), "c:\\gone\\1.mp3\tc:\\m\\1.mp3\n");
}

TEST_F(WhatIsLeftOut, PathsThatAreTooLongAreTold) {
  const DeepTree tree(drives_.C(), std::string(250, 'x'), 140);
  EXPECT_EQ(Run({"list", "c:\\"}), 1);
  EXPECT_EQ(Err(), "qublet: c:\\: 1 path is too long\n");
}

TEST_F(WhatIsLeftOut, LongPathsAreListed) {
  DeepTree tree(drives_.D(), std::string(200, 'x'), 60);
  tree.Write("4.mp3", "abc");
  EXPECT_EQ(Run({"list", "d:\\"}), 0);
  EXPECT_EQ(Err(), "");
  EXPECT_TRUE(Out().find("4.mp3\t0:00\t3 Bytes\t" + tree.PathBelow("d:") + "\\\t") != std::string::npos) << Out();
}

TEST_F(WhatIsLeftOut, LongLinesAreToldBesideTheRows) {
  EXPECT_EQ(Run({"list", "c:\\long.m3u"}), 1);
  EXPECT_EQ(Err(), kLongLine);
  EXPECT_TRUE(Out().find("1.mp3") != std::string::npos);
}

TEST_F(WhatIsLeftOut, LongLinesAreNotSavedOver) {
  const std::string before = drives_.Read("long.m3u");
  EXPECT_EQ(Run({"save", "--replace", "c:\\long.m3u", "c:\\long.m3u"}), 1);
  EXPECT_EQ(Err(), kLongLine);
  EXPECT_EQ(drives_.Read("long.m3u"), before);
  EXPECT_EQ(Run({"report", "c:\\out.htm", "c:\\long.m3u"}), 1);
  EXPECT_EQ(Err(), kLongLine);
}

// The most memory that a run of `qublet` has had, in bytes. What it prints goes nowhere.
std::int64_t MostMemoryOf(const std::vector<std::string>& arguments) {
  std::string program = TestProgram("qublet");
  std::vector<std::string> all(arguments);
  std::vector<char*> words{program.data()};
  for (std::string& word : all) words.push_back(word.data());
  words.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  for (int number = 0; number < 3; ++number)
    posix_spawn_file_actions_addopen(&actions, number, "/dev/null", O_RDWR, 0);
  pid_t process = 0;
  const int error = posix_spawn(&process, words[0], &actions, nullptr, words.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  EXPECT_EQ(error, 0);
  int status = 0;
  rusage usage{};
  EXPECT_EQ(wait4(process, &status, 0, &usage), process);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 1) << status;
  return std::int64_t{usage.ru_maxrss} * 1024;
}

// A playlist of 256 MiB that repeats a part.
void WriteLargest(const std::filesystem::path& place, const std::string& mark, const std::string& part) {
  std::string block;
  while (block.size() < (std::size_t{1} << 20)) block += part;
  std::ofstream file(place, std::ios::binary);
  file << mark;
  auto room = static_cast<std::size_t>(PlaylistBounds::kMostFileBytes) - mark.size();
  for (; room > 0; room -= std::min(room, block.size())) file.write(block.data(), std::min(room, block.size()));
}

TEST(MemoryOfPlaylists, TheLargestPlaylistTakesLessThanThreeTimesItsSize) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "what a sanitizer keeps for itself isn't the program's";
#endif
  const TemporaryDrives drives;
  const std::string long_line = std::string(PlaylistBounds::kMostLineBytes - 4, 'x') + ".mp3\n";
  std::string wide_line;
  for (int i = 0; i < 1000; ++i) wide_line += "\x01\x4E";
  for (const char c : std::string(".mp3\n")) wide_line.append(1, c).push_back('\0');
  const struct {
    const char* name;
    std::string mark;
    std::string part;
  } kinds[] = {{"shortest lines", "", ".mp3\n"}, {"several types a line", "", ".mp3.wav.ogg.wma\n"},
               {"longest lines", "", long_line}, {"one line", "", std::string(1 << 20, 'x')},
               {"empty lines", "", "\n"},        {"UTF-16", "\xFF\xFE", wide_line}};
  for (const auto& kind : kinds) {
    WriteLargest(drives.C() / "list.m3u", kind.mark, kind.part);
    EXPECT_LT(MostMemoryOf({"list", "c:\\list.m3u"}), 3 * PlaylistBounds::kMostFileBytes) << kind.name;
  }
}

}  // namespace
}  // namespace qublet

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "support/faults.h"
#include "support/own_file.h"
#include "support/temporary_drives.h"

// Where `qublet` keeps its own files, and what it leaves of others when it is interrupted.

namespace qublet {
namespace {

namespace fs = std::filesystem;

class OwnFilesOfTheCommandTest : public testing::Test {
 protected:
  static pid_t Begin(const fs::path& program, const std::vector<std::string>& words) {
    const pid_t child = fork();
    if (child != 0) return child;
    std::vector<char*> all{const_cast<char*>(program.c_str())};
    for (const std::string& word : words) all.push_back(const_cast<char*>(word.c_str()));
    all.push_back(nullptr);
    execv(program.c_str(), all.data());
    _exit(127);
  }
  static int EndOf(pid_t child) {
    int status = 0;
    waitpid(child, &status, 0);
    return status;
  }
  // A copy of the program in a folder of its own.
  fs::path Install() const {
    fs::create_directory(drives_.C() / "app");
    fs::copy_file(TestProgram("qublet"), drives_.C() / "app/qublet");
    return drives_.C() / "app/qublet";
  }
  bool HasHiddenFile() const {
    for (const auto& entry : fs::directory_iterator(drives_.C())) {
      if (entry.path().filename().string().starts_with(".")) return true;
    }
    return false;
  }

  TemporaryDrives drives_;
};

TEST_F(OwnFilesOfTheCommandTest, StandBesideTheProgramWhereNobodyElseCanWrite) {
  const fs::path program = Install();
  fs::permissions(drives_.C() / "app", fs::perms(0755));
  EXPECT_EQ(EndOf(Begin(program, {"bookmarks", "list"})), 0);
  EXPECT_TRUE(IsForThisUserAlone(drives_.C() / "app/Bookmarks"));
  EXPECT_TRUE(IsForThisUserAlone(drives_.C() / "app/Bookmarks/Default.bm"));
}

TEST_F(OwnFilesOfTheCommandTest, StandInTheUsersFolderWhereOthersCanWriteBesideTheProgram) {
  const fs::path program = Install();
  for (const fs::perms mode : {fs::perms(0777), fs::perms(01777), fs::perms(0775)}) {
    fs::permissions(drives_.C() / "app", mode);
    EXPECT_EQ(EndOf(Begin(program, {"bookmarks", "list"})), 0);
    EXPECT_FALSE(fs::exists(drives_.C() / "app/Bookmarks"));
    EXPECT_TRUE(IsForThisUserAlone(drives_.Root() / "data/velmora"));
    EXPECT_TRUE(IsForThisUserAlone(drives_.Root() / "data/velmora/Bookmarks/Default.bm"));
    fs::remove_all(drives_.Root() / "data");
  }
}

TEST_F(OwnFilesOfTheCommandTest, AnInterruptedCommandLeavesNoHiddenFile) {
  constexpr std::size_t kLong = 192 << 20;
  drives_.Write("long.mp3", std::string(kLong, 'x'));
  for (const int number : {SIGINT, SIGTERM}) {
    const pid_t child = Begin(TestProgram("qublet"), {"tag", "--set", "TIT2=New", "c:\\long.mp3"});
    int status = 0;
    bool ended = false;
    while (!HasHiddenFile() && !ended) ended = waitpid(child, &status, WNOHANG) == child;
    ASSERT_FALSE(ended) << "it was too quick: " << status;
    kill(child, number);
    status = EndOf(child);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == number) << status;
    EXPECT_FALSE(HasHiddenFile());
    EXPECT_EQ(fs::file_size(drives_.C() / "long.mp3"), kLong);
  }
}

}  // namespace
}  // namespace qublet

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

#include "platform/end_requests.h"
#include "platform/linux/linux_file_system_test_base.h"

namespace qublet {
namespace {

// What a process of its own has in hand when it is ended from outside.
class UnfinishedFilesTest : public LinuxFileSystemTest {
 protected:
  // Runs `work` in a process and sends it a signal once it has come to its end; gives how the process ended.
  static int EndedBy(int number, const std::function<void()>& work) {
    int ends[2];
    if (pipe(ends) != 0) return -1;
    const pid_t child = fork();
    if (child == 0) Run(work, ends[1]);
    close(ends[1]);
    char ready = 0;
    const bool came = read(ends[0], &ready, 1) == 1;
    close(ends[0]);
    int status = 0;
    kill(child, came ? number : SIGKILL);
    waitpid(child, &status, 0);
    return came ? status : -1;
  }

  Names HiddenNames() const {
    Names names = NamesIn("c:\\");
    std::erase_if(names, [](const std::string& name) { return !name.starts_with("."); });
    return names;
  }

 private:
  [[noreturn]] static void Run(const std::function<void()>& work, int told) {
    if (Guarded(work) && write(told, "", 1) != 1) _exit(2);
    close(told);
    while (true) pause();
  }
};

TEST_F(UnfinishedFilesTest, GoWithAProcessThatIsInterrupted) {
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    drives_.Write("list.m3u", "old");
    std::vector<std::unique_ptr<FileReplacement>> in_hand;
    const int status = EndedBy(number, [&] {
      static const TidyEnd tidy_end;
      for (const char* path : {"c:\\list.m3u", "c:\\list.m3u", "c:\\new.m3u", "d:\\new.m3u"}) {
        in_hand.push_back(files_->BeginReplacement(path));
        in_hand.back()->Write(BytesOf(LongContent()));
      }
    });
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == number) << status;
    EXPECT_EQ(NamesIn("c:\\"), Names{"list.m3u"});
    EXPECT_EQ(NamesIn("d:\\"), Names{});
    EXPECT_EQ(drives_.Read("list.m3u"), "old");
  }
}

TEST_F(UnfinishedFilesTest, AreNoneOnceTheyStandOrAreDropped) {
  const int status = EndedBy(SIGTERM, [&] {
    static const TidyEnd tidy_end;
    Replace("c:\\list.m3u", "new");
    files_->BeginReplacement("c:\\other.m3u");
    drives_.Write(".qublet-of-another", "x");
  });
  EXPECT_TRUE(WIFSIGNALED(status));
  EXPECT_EQ(NamesIn("c:\\"), (Names{".qublet-of-another", "list.m3u"}));
}

TEST_F(UnfinishedFilesTest, GoWithAnEndAtOnce) {
  const int status = EndedBy(0, [&] {
    const auto in_hand = files_->BeginReplacement("c:\\list.m3u");
    in_hand->Write(BytesOf(LongContent()));
    EndAtOnce(7);
  });
  EXPECT_EQ(status, -1) << "it ends before it says a word";
  EXPECT_EQ(HiddenNames(), Names{});
}

TEST_F(UnfinishedFilesTest, LeaveAnIgnoredSignalIgnored) {
  const int status = EndedBy(SIGHUP, [&] {
    signal(SIGHUP, SIG_IGN);
    static const TidyEnd tidy_end;
    signal(SIGALRM, [](int) { _exit(5); });
    alarm(1);
  });
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 5) << status;
}

}  // namespace
}  // namespace qublet

#pragma once

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace qublet {

// Waits until the condition holds, five seconds at most; gives whether it does.
inline bool Eventually(const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(5);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return true;
}

// Stops a child of this process and waits until it stands: its threads may go on for a moment.
inline void Freeze(pid_t process) {
  kill(process, SIGSTOP);
  waitpid(process, nullptr, WUNTRACED);
}

// A program that runs beside the test, says nothing, and is killed with its owner.
class ChildProcess {
 public:
  explicit ChildProcess(const std::vector<std::string>& command) {
    std::vector<char*> words;
    for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    for (int number = 0; number < 3; ++number)
      posix_spawn_file_actions_addopen(&actions, number, "/dev/null", O_RDWR, 0);
    const int error = posix_spawn(&process_, words[0], &actions, nullptr, words.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) throw std::runtime_error("can't be started: " + command.front());
  }
  ~ChildProcess() { Kill(); }
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  void Freeze() const { qublet::Freeze(process_); }
  void Thaw() const { kill(process_, SIGCONT); }
  void Kill() {
    if (process_ == 0) return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
    process_ = 0;
  }

 private:
  pid_t process_ = 0;
};

}  // namespace qublet

#include "platform/end_requests.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <thread>
#include <utility>

#include "platform/linux/descriptor.h"
#include "platform/linux/unfinished_files.h"

namespace qublet {
namespace {

constexpr std::array kSignals{SIGTERM, SIGHUP, SIGINT};

// Where the handler writes; a handler is given nothing and finds only what is static.
std::atomic<int> told_through = -1;

void Tell(int signal) {
  const int error = errno;
  const auto number = static_cast<char>(signal);
  // A full pipe tells enough already.
  [[maybe_unused]] const ssize_t count = write(told_through, &number, 1);
  errno = error;
}

// As if nobody had heard the signal.
void DieOf(int signal) {
  DeleteUnfinished();
  std::signal(signal, SIG_DFL);
  kill(getpid(), signal);
}

struct Pipe {
  Pipe() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) FailWithErrno("make", "pipe");
    out = Descriptor(ends[0]);
    in = Descriptor(ends[1]);
    // The handler must never wait.
    fcntl(in.Get(), F_SETFL, O_NONBLOCK);
  }

  Descriptor out, in;
};

}  // namespace

struct EndRequests::System {
  explicit System(std::function<void(int)> asked) : waiter([this, told = std::move(asked)] { Wait(told); }) {
    told_through = pipe.in.Get();
    struct sigaction tell {};
    tell.sa_handler = Tell;
    tell.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
      sigaction(kSignals[i], nullptr, &before[i]);
      if (before[i].sa_handler != SIG_IGN) sigaction(kSignals[i], &tell, nullptr);
    }
  }

  ~System() {
    for (std::size_t i = 0; i < kSignals.size(); ++i) sigaction(kSignals[i], &before[i], nullptr);
    told_through = -1;
    pipe.in = Descriptor();
    waiter.join();
  }

  void Wait(const std::function<void(int)>& asked) const {
    char signal = 0;
    while (Uninterrupted([&] { return read(pipe.out.Get(), &signal, 1); }) == 1) asked(signal);
  }

  Pipe pipe;
  std::array<struct sigaction, kSignals.size()> before{};
  std::thread waiter;
};

EndRequests::EndRequests(std::function<void()> asked)
    : system_(std::make_unique<System>([told = std::move(asked)](int /*signal*/) { told(); })) {}
EndRequests::~EndRequests() = default;

TidyEnd::TidyEnd() {
  ResumeNext([&] { system_ = std::make_unique<EndRequests::System>(DieOf); });
}
TidyEnd::~TidyEnd() = default;

void EndAtOnce(int code) {
  DeleteUnfinished();
  std::_Exit(code);
}

}  // namespace qublet

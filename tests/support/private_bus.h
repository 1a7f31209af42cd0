#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "support/child_process.h"
#include "support/temporary_desktop.h"

namespace qublet {

// A bus of the test's own, the session's unless another variable names the system's. For as long as it lives it is
// the one of this process and of those it starts.
class PrivateBus {
 public:
  explicit PrivateBus(const TemporaryDesktop& desktop, const std::string& variable = "DBUS_SESSION_BUS_ADDRESS")
      : socket_(desktop.Runtime() / variable), address_(variable, "unix:path=" + socket_.string()) {
    Start();
  }

  std::string Address() const { return "unix:path=" + socket_.string(); }

  void Start() {
    std::filesystem::remove(socket_);
    daemon_ = std::make_unique<ChildProcess>(std::vector<std::string>{
        "/usr/bin/dbus-daemon", "--session", "--nofork", "--nopidfile", "--address=unix:path=" + socket_.string()});
    if (!Eventually([&] { return std::filesystem::exists(socket_); })) throw std::runtime_error("no bus");
  }
  void Stop() { daemon_->Kill(); }
  const ChildProcess& Daemon() const { return *daemon_; }

 private:
  std::filesystem::path socket_;
  Variable address_;
  std::unique_ptr<ChildProcess> daemon_;
};

}  // namespace qublet

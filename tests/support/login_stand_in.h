#pragma once

#include <memory>
#include <string>

#include "support/private_bus.h"

namespace qublet {

// A system bus of the test's own, and on it a login manager that switches nothing off.
class LoginStandIn {
 public:
  // `manner`: "" answers, "refuses" answers with an error, "hangs" never answers.
  explicit LoginStandIn(const TemporaryDesktop& desktop, const std::string& manner = "")
      : log_(desktop.Drives().Root() / "login manager"),
        bus_(desktop, "DBUS_SYSTEM_BUS_ADDRESS"),
        manager_({"/usr/bin/python3", QUBLET_FAKE_LOGIN_MANAGER, bus_.Address(), log_.string(), manner}) {
    if (!Eventually([&] { return Requests() == ""; })) throw std::runtime_error("no login manager");
  }

  // What it has been asked for, a line each.
  std::string Requests() const {
    const std::string log = TemporaryDrives::ReadAt(log_);
    return log.starts_with("ready\n") ? log.substr(6) : "not ready";
  }

 private:
  std::filesystem::path log_;
  PrivateBus bus_;
  ChildProcess manager_;
};

}  // namespace qublet

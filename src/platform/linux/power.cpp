#include "platform/power.h"

#include <chrono>
#include <utility>

#include "platform/failure.h"
#include "platform/linux/message_bus.h"

namespace qublet {
namespace {

constexpr std::chrono::seconds kPatience{2};

// The login manager (freedesktop.org/software/systemd/man/org.freedesktop.login1).
class LoginManager : public Power {
 public:
  // The manager decides itself who may, and asks for a password where it has to.
  void EnableShutdownPrivilege() override {}

  void ForceShutdown() override {
    EnableShutdownPrivilege();
    ResumeNext([&] {
      BusMessage call =
          BusCall("org.freedesktop.login1", "/org/freedesktop/login1", "org.freedesktop.login1.Manager", "PowerOff");
      dbus_message_set_auto_start(call.get(), TRUE);
      const dbus_bool_t interactive = TRUE;
      dbus_message_append_args(call.get(), DBUS_TYPE_BOOLEAN, &interactive, DBUS_TYPE_INVALID);
      bus_.Ask(std::move(call), std::chrono::steady_clock::now() + kPatience);
    });
  }

 private:
  MessageBus bus_{MessageBus::Whose::kSystem};
};

}  // namespace

std::unique_ptr<Power> OpenPower() {
  return std::make_unique<LoginManager>();
}

}  // namespace qublet

#pragma once

#include <dbus/dbus.h>

#include <chrono>
#include <memory>
#include <vector>

namespace qublet {

struct UnrefMessage {
  void operator()(DBusMessage* message) const { dbus_message_unref(message); }
};
using BusMessage = std::unique_ptr<DBusMessage, UnrefMessage>;

using Deadline = std::chrono::steady_clock::time_point;

// This user's session bus, where the programs of a desktop talk to each other. Connected when first needed and anew
// when the bus has gone; a session without one has nobody to talk to. No bus is ever started for us.
class SessionBus {
 public:
  SessionBus() = default;
  ~SessionBus() { Close(); }
  SessionBus(const SessionBus&) = delete;
  SessionBus& operator=(const SessionBus&) = delete;

  // Sends all calls at once and waits for their answers, until `deadline` at the latest. One answer a call, in their
  // order; none for a call that failed or wasn't answered in time.
  std::vector<BusMessage> Ask(const std::vector<BusMessage>& calls, Deadline deadline);
  BusMessage Ask(BusMessage call, Deadline deadline);

 private:
  bool Connect(Deadline deadline);
  std::vector<BusMessage> SendAndWait(const std::vector<BusMessage>& calls, Deadline deadline);
  void Close();

  DBusConnection* connection_ = nullptr;
};

// A call that starts no program when nobody has the name. Every text must be well-formed for the bus.
BusMessage BusCall(const char* destination, const char* path, const char* interface, const char* method);

}  // namespace qublet

#pragma once

#include <dbus/dbus.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace qublet {

struct UnrefMessage {
  void operator()(DBusMessage* message) const { dbus_message_unref(message); }
};
using BusMessage = std::unique_ptr<DBusMessage, UnrefMessage>;

using Deadline = std::chrono::steady_clock::time_point;

// One of the two buses: this user's session's, where the programs of a desktop talk to each other, or the system's,
// where its services are asked. Connected when first needed and anew when the bus has gone; where there is none there
// is nobody to talk to. No bus is ever started for us.
class MessageBus {
 public:
  enum class Whose { kSession, kSystem };

  explicit MessageBus(Whose whose = Whose::kSession) : whose_(whose) {}
  ~MessageBus() { Close(); }
  MessageBus(const MessageBus&) = delete;
  MessageBus& operator=(const MessageBus&) = delete;

  // Sends all calls at once and waits for their answers, until `deadline` at the latest. One answer a call, in their
  // order; none for a call that failed or wasn't answered in time.
  std::vector<BusMessage> Ask(const std::vector<BusMessage>& calls, Deadline deadline);
  BusMessage Ask(BusMessage call, Deadline deadline);

 private:
  struct Opening;

  bool Connect(Deadline deadline);
  DBusConnection* Open(const std::string& address, Deadline deadline);
  std::vector<BusMessage> SendAndWait(const std::vector<BusMessage>& calls, Deadline deadline);
  void Close();

  const Whose whose_;
  DBusConnection* connection_ = nullptr;
  std::shared_ptr<Opening> opening_;  // under way
};

// A call that starts no program when nobody has the name. Every text must be well-formed for the bus.
BusMessage BusCall(const char* destination, const char* path, const char* interface, const char* method);

}  // namespace qublet

#include "platform/linux/message_bus.h"

#include <unistd.h>

#include <algorithm>
#include <condition_variable>
#include <cstdlib>
#include <mutex>
#include <new>
#include <string>
#include <thread>
#include <utility>

#include "platform/failure.h"

namespace qublet {
namespace {

// What the user's surroundings say, "" when they say nothing.
std::string AddressTold(const char* variable) {
  const char* address = std::getenv(variable);
  return address != nullptr ? address : "";
}

// "" for a session without a bus. The library's own search would start one.
std::string SessionAddress() {
  std::string address = AddressTold("DBUS_SESSION_BUS_ADDRESS");
  if (!address.empty()) return address;
  const char* runtime = std::getenv("XDG_RUNTIME_DIR");
  const std::string socket = std::string(runtime != nullptr ? runtime : "") + "/bus";
  return runtime != nullptr && *runtime == '/' && access(socket.c_str(), R_OK | W_OK) == 0 ? "unix:path=" + socket
                                                                                           : "";
}

// It stands at the same place on every system.
std::string SystemAddress() {
  const std::string address = AddressTold("DBUS_SYSTEM_BUS_ADDRESS");
  return address.empty() ? "unix:path=/run/dbus/system_bus_socket" : address;
}

int MillisecondsUntil(Deadline deadline) {
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
  return static_cast<int>(std::max<std::int64_t>(left.count(), 0));
}

// An answer on its way. Given up, it is nobody's when it comes.
class Pending {
 public:
  Pending(DBusConnection* connection, DBusMessage* call) {
    dbus_connection_send_with_reply(connection, call, &call_, DBUS_TIMEOUT_INFINITE);
  }
  Pending(Pending&& other) noexcept : call_(std::exchange(other.call_, nullptr)) {}
  Pending& operator=(Pending&&) = delete;
  ~Pending() {
    if (call_ == nullptr) return;
    dbus_pending_call_cancel(call_);
    dbus_pending_call_unref(call_);
  }

  bool IsOver() const { return call_ == nullptr || dbus_pending_call_get_completed(call_); }

  BusMessage Answer() {
    if (call_ == nullptr || !dbus_pending_call_get_completed(call_)) return nullptr;
    BusMessage answer(dbus_pending_call_steal_reply(call_));
    const bool fine = answer && dbus_message_get_type(answer.get()) == DBUS_MESSAGE_TYPE_METHOD_RETURN;
    return fine ? std::move(answer) : nullptr;
  }

 private:
  DBusPendingCall* call_ = nullptr;
};

}  // namespace

BusMessage BusCall(const char* destination, const char* path, const char* interface, const char* method) {
  BusMessage call(dbus_message_new_method_call(destination, path, interface, method));
  if (!call) throw std::bad_alloc();
  dbus_message_set_auto_start(call.get(), FALSE);
  return call;
}

// A connection that is being made. The library waits until the bus has room for it among those that it hasn't looked
// at yet, however long that takes, so it waits on a thread of its own. What comes when nobody waits any more is
// closed.
struct MessageBus::Opening {
  struct Close {
    void operator()(DBusConnection* made) const {
      dbus_connection_close(made);
      dbus_connection_unref(made);
    }
  };

  const std::string address;
  std::mutex mutex;  // of what stands below
  std::condition_variable changed;
  bool over = false;
  std::unique_ptr<DBusConnection, Close> connection;
};

// Nothing until there is one; an attempt that takes longer than `deadline` is waited for again by the next call.
DBusConnection* MessageBus::Open(const std::string& address, Deadline deadline) {
  if (!opening_ || opening_->address != address) {
    opening_.reset(new Opening{address, {}, {}, false, nullptr});
    const auto open = [opening = opening_] {
      DBusConnection* connection = dbus_connection_open_private(opening->address.c_str(), nullptr);
      const std::lock_guard lock(opening->mutex);
      opening->connection.reset(connection);
      opening->over = true;
      opening->changed.notify_all();
    };
    if (!Guarded([&] { std::thread(open).detach(); })) {
      opening_.reset();
      return nullptr;
    }
  }
  std::unique_lock lock(opening_->mutex);
  if (!opening_->changed.wait_until(lock, deadline, [&] { return opening_->over; })) return nullptr;
  DBusConnection* connection = opening_->connection.release();
  lock.unlock();
  opening_.reset();
  return connection;
}

bool MessageBus::Connect(Deadline deadline) {
  if (connection_ != nullptr && dbus_connection_get_is_connected(connection_)) return true;
  Close();
  const std::string address = whose_ == Whose::kSession ? SessionAddress() : SystemAddress();
  if (address.empty()) return false;
  connection_ = Open(address, deadline);
  if (connection_ == nullptr) return false;
  dbus_connection_set_exit_on_disconnect(connection_, FALSE);
  std::vector<BusMessage> hello;
  hello.push_back(BusCall(DBUS_SERVICE_DBUS, DBUS_PATH_DBUS, DBUS_INTERFACE_DBUS, "Hello"));
  if (SendAndWait(hello, deadline).front()) return true;
  Close();
  return false;
}

void MessageBus::Close() {
  if (connection_ == nullptr) return;
  dbus_connection_close(connection_);
  dbus_connection_unref(connection_);
  connection_ = nullptr;
}

std::vector<BusMessage> MessageBus::SendAndWait(const std::vector<BusMessage>& calls, Deadline deadline) {
  std::vector<Pending> pending;
  for (const BusMessage& call : calls) pending.emplace_back(connection_, call.get());
  while (!std::ranges::all_of(pending, &Pending::IsOver)) {
    const int left = MillisecondsUntil(deadline);
    if (left == 0 || !dbus_connection_read_write_dispatch(connection_, left)) break;
  }
  std::vector<BusMessage> answers;
  for (Pending& call : pending) answers.push_back(call.Answer());
  return answers;
}

std::vector<BusMessage> MessageBus::Ask(const std::vector<BusMessage>& calls, Deadline deadline) {
  if (!Connect(deadline)) return std::vector<BusMessage>(calls.size());
  return SendAndWait(calls, deadline);
}

BusMessage MessageBus::Ask(BusMessage call, Deadline deadline) {
  std::vector<BusMessage> calls;
  calls.push_back(std::move(call));
  return std::move(Ask(calls, deadline).front());
}

}  // namespace qublet

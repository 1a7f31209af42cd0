#include "platform/linux/file_manager.h"

#include <array>
#include <chrono>

#include "platform/file_address.h"

namespace qublet {

bool ShowItemProperties(MessageBus& bus, const std::string& native, const std::string& startup_id) {
  BusMessage call = BusCall("org.freedesktop.FileManager1", "/org/freedesktop/FileManager1",
                            "org.freedesktop.FileManager1", "ShowItemProperties");
  dbus_message_set_auto_start(call.get(), TRUE);
  const std::string address = FileAddress(native);
  const std::array<const char*, 1> addresses{address.c_str()};
  const char* const* list = addresses.data();
  const char* id = startup_id.c_str();
  dbus_message_append_args(call.get(), DBUS_TYPE_ARRAY, DBUS_TYPE_STRING, &list, 1, DBUS_TYPE_STRING, &id,
                           DBUS_TYPE_INVALID);
  const Deadline deadline = std::chrono::steady_clock::now() + std::chrono::seconds(2);
  return bus.Ask(std::move(call), deadline) || std::chrono::steady_clock::now() >= deadline;
}

}  // namespace qublet

#pragma once

#include <string>

#include "platform/linux/message_bus.h"

namespace qublet {

// Asks the desktop's file manager for its window about a file, over the bus interface org.freedesktop.FileManager1
// (https://www.freedesktop.org/wiki/Specifications/file-manager-interface/). It is started when it doesn't run. False
// when there is none or it refuses; one that hasn't answered after two seconds is taken to be still starting.
bool ShowItemProperties(MessageBus& bus, const std::string& native, const std::string& startup_id = "");

}  // namespace qublet

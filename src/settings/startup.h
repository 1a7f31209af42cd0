#pragma once

#include <string>

#include "platform/startup_entry.h"

namespace qublet {

// Whether the system opens a playlist at logon. The entry is named like the file less its last four characters
// ("last" for "last.m3u"). Where it can't be made or removed nothing happens.
void AddToStartup(StartupEntries& entries, const std::string& path);
void RemoveFromStartup(StartupEntries& entries, const std::string& path);

}  // namespace qublet

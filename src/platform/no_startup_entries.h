#pragma once

#include "platform/startup_entry.h"

namespace qublet {

// No entry is made or removed: for a run that must leave nothing behind.
class NoStartupEntries : public StartupEntries {
 public:
  void Set(const std::string& /*name*/, const std::string& /*path*/) override {}
  void Remove(const std::string& /*name*/) override {}
};

}  // namespace qublet

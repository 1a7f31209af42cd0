#pragma once

#include <memory>
#include <string>

#include "platform/file_system.h"

namespace qublet {

// What the system opens by itself when this user logs in. Entries have plain names ("last").
class StartupEntries {
 public:
  virtual ~StartupEntries() = default;
  // From the next logon on the file at `path` (drive form) is opened, with the program that files of its kind are
  // opened with. Throws Failure.
  virtual void Set(const std::string& name, const std::string& path) = 0;
  // Throws Failure; an entry that isn't there is none.
  virtual void Remove(const std::string& name) = 0;
};

// The entries of this user on this machine; `files` must outlive them. On Linux "<name>.desktop" in the autostart
// folder of this user; an entry that some other program made under the name is left alone.
std::unique_ptr<StartupEntries> OpenStartupEntries(const FileSystem& files);

}  // namespace qublet

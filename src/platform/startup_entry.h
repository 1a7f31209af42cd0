#pragma once

#include <memory>
#include <string>

#include "platform/file_system.h"

namespace qublet {

// What the system opens by itself when this user logs in. Entries have plain names ("last").
class StartupEntries {
 public:
  virtual ~StartupEntries() = default;
  // Where a playlist (drive form) has to stand for programs to open it: `path` itself, or where they don't read
  // drives a twin beside it in this system's own form ("last.m3u8" for "last.m3u").
  virtual std::string FileToOpen(const std::string& path) const { return path; }
  // From the next logon on FileToOpen(path) is opened, with the program that files of its kind are opened with.
  // Throws Failure.
  virtual void Set(const std::string& name, const std::string& path) = 0;
  // Throws Failure; an entry that isn't there is none.
  virtual void Remove(const std::string& name) = 0;
};

// The entries of this user on this machine; `files` must outlive them. On Linux "<name>.desktop" in the autostart
// folder of this user; an entry that some other program made under the name is left alone.
std::unique_ptr<StartupEntries> OpenStartupEntries(const FileSystem& files);

}  // namespace qublet

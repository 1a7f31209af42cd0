#pragma once

#include <memory>
#include <string>

#include "platform/file_system.h"

namespace qublet {

// What other programs do for us. A program that is started runs on by itself: nobody waits for it, and no result is
// shown. Nothing here throws.
class Shell {
 public:
  virtual ~Shell() = default;
  // Opens a file or folder (drive form) with the program that it is associated with. Nothing happens when there is
  // none.
  virtual void Open(const std::string& path) = 0;
};

// The one of this machine; `files` must outlive it.
std::unique_ptr<Shell> OpenShell(const FileSystem& files);

// Where a playlist stands that other programs are to open, in drive form without a trailing "\": a folder that is
// this user's alone, for playlists in this system's own form. "" where programs read the program's own form as it is.
// Made when missing. Throws Failure.
std::string HandOverFolder(const FileSystem& files);

}  // namespace qublet

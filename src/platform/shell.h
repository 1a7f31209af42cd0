#pragma once

#include <memory>
#include <string>

#include "platform/file_system.h"

namespace qublet {

// What other programs do for us. A program that is started runs on by itself: nobody waits for it, and no result is
// shown.
class Shell {
 public:
  virtual ~Shell() = default;
  // Opens a file or folder (drive form) with the program that it is associated with. Nothing happens when there is
  // none. Never throws.
  virtual void Open(const std::string& path) = 0;
  // Where a playlist stands that other programs are to open, in drive form without a trailing "\": a folder of this
  // user for playlists in this system's own form, made when missing. "" where programs read the program's own form as
  // it is. Throws Failure.
  virtual std::string HandOverFolder() = 0;
};

// The one of this machine; `files` must outlive it.
std::unique_ptr<Shell> OpenShell(const FileSystem& files);

}  // namespace qublet

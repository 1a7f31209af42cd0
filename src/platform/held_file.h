#pragma once

#include <memory>
#include <string>

#include "platform/file_system.h"

namespace qublet {

// An empty file that this process holds against every other holder, here and in other processes, until its end,
// however the process ends. It goes with its holder; a killed process may leave it, and then nobody holds it.
class HeldFile {
 public:
  virtual ~HeldFile() = default;
};

// Makes the file when it is missing. Nothing when another one holds it. Throws Failure when it can't be made, or
// where files can't be held.
std::unique_ptr<HeldFile> HoldFile(const FileSystem& files, const std::string& path);

}  // namespace qublet

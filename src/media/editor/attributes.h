#pragma once

#include <array>
#include <string>

#include "platform/file_system.h"

namespace qublet {

// What is to become of a file's attributes: "SET", "CLR", or "" for no change.
struct FileAttributeChanges {
  std::string normal;
  std::string read_only;
  std::string archive;
  std::string system;
  std::string hidden;
};

// True unless a failure occurred. Attributes beyond these five are lost where the system has more.
bool ApplyFileAttributes(const FileSystem& files, const std::string& path, const FileAttributeChanges& changes);

}  // namespace qublet

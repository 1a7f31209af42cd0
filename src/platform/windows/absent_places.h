#pragma once

#include <map>
#include <string>

#include "platform/absent_places.h"
#include "platform/file_system.h"

namespace qublet {

// A drive or a share whose root can't be reached isn't there. Each is asked once: a server may take long to be
// silent.
class UnreachableRoots : public AbsentPlaces {
 public:
  explicit UnreachableRoots(const FileSystem& files) : files_(files) {}

  std::string Of(const std::string& path) override;

 private:
  const FileSystem& files_;
  std::map<std::string, bool> absent_;
};

}  // namespace qublet

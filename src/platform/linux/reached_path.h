#pragma once

#include <string>

#include "platform/linux/descriptor.h"

namespace qublet {

// A native path for the calls that take an open folder and a name, whatever its length. The system takes no path of
// PATH_MAX bytes; of such a one the folders in front are opened one stretch after the other.
class ReachedPath {
 public:
  // `native` outlives this. Throws Failure when a stretch can't be opened.
  explicit ReachedPath(const std::string& native);

  // AT_FDCWD for a path of usual length.
  int Folder() const;
  const char* Name() const { return name_; }

 private:
  Descriptor folder_;
  const char* name_;
};

}  // namespace qublet

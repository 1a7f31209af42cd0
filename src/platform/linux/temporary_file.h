#pragma once

#include <string>

#include "platform/linux/descriptor.h"

namespace qublet {

struct TemporaryFile {
  Descriptor file;  // open for reading and writing
  std::string name;
};

// Makes an empty file in `folder` that will be renamed to `target` there, or deleted. It is locked for as long as it
// is open, and its name follows from that of the target. So what a killed process left is found by its name, known as
// left by its free lock, and deleted by the next one that writes the same target.
//
// While another one writes the same target, and where locks can't be trusted (see LocksHoldForAll), the name is a
// random one; what a kill leaves under that stays. Throws Failure.
TemporaryFile MakeTemporaryFile(const Descriptor& folder, const std::string& target, mode_t mode);

}  // namespace qublet

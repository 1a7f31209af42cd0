#pragma once

#include <string>

namespace qublet {

// Renames a file or folder; an existing target is a failure, except when it is the same file under a name of other
// letter case. Across file systems a file is copied, checked and deleted. Throws Failure.
void Move(const std::string& from, const std::string& to);

}  // namespace qublet

#pragma once

#include <string>

namespace qublet {

// Renames below a folder, given by its descriptor (AT_FDCWD for the current one); an existing target is never
// replaced. Gives 0 or the error.
int RenameWithoutReplacing(int folder, const std::string& from, const std::string& to);

// The same. Throws Failure.
void RenameInFolder(int folder, const std::string& from, const std::string& to);

}  // namespace qublet

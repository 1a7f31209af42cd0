#pragma once

#include <string>

namespace qublet {

// Why this system takes no file of that name ("the name is too long", "the name holds a forbidden character"), "" if
// it does. A disk may refuse more.
std::string NameRefusal(const std::string& name);

// The same for all paths that lead to one file because letter case makes no difference on this system's disks.
std::string PathKey(const std::string& path);

}  // namespace qublet

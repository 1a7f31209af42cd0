#pragma once

#include <string>

namespace qublet {

// This computer's name as its network knows it, "" when it has none. Never throws.
std::string ComputerName();

}  // namespace qublet

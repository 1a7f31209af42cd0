#pragma once

#include <string>

namespace qublet {

// The mark between groups of three digits as this user has it set, "" for none. Never throws.
std::string DigitGroupMark();

}  // namespace qublet

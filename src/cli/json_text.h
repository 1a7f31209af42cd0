#pragma once

#include <string>
#include <string_view>

namespace qublet {

// A text as a JSON string with its quotes (RFC 8259).
std::string JsonText(std::string_view text);

}  // namespace qublet

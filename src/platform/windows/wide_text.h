#pragma once

#include <string>
#include <string_view>

namespace qublet {

// UTF-8 as the system's own UTF-16 and back. What is malformed becomes U+FFFD.
std::wstring WideText(std::string_view text);
std::string NarrowText(std::wstring_view text);

}  // namespace qublet

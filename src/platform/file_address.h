#pragma once

#include <string>
#include <string_view>

namespace qublet {

// As it stands in an address (RFC 3986): each byte but letters, digits, "-._~" and the kept ones as "%" and two
// digits.
std::string PercentEncoded(std::string_view text, std::string_view kept);

// The address of a file with an absolute path of the form "/home/u/a b.mp3" for other programs (RFC 8089):
// "file:///home/u/a%20b.mp3".
std::string FileAddress(const std::string& native);

}  // namespace qublet

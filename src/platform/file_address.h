#pragma once

#include <string>

namespace qublet {

// The address of a file with an absolute path of the form "/home/u/a b.mp3" for other programs (RFC 8089):
// "file:///home/u/a%20b.mp3".
std::string FileAddress(const std::string& native);

}  // namespace qublet

#pragma once

#include <string>
#include <string_view>

namespace qublet {

// Names of this system as text, and back. Between names "/" and "\" stand for each other. What a name may hold here
// and a text path may not is shown by letters of the private-use area:
//
//   native                                  text
//   "\"                                     U+F05C
//   ":"                                     U+F03A
//   control characters 0x01 to 0x1F         U+F001 to U+F01F
//   a byte that is no UTF-8, 0x80 to 0xFF   U+F780 to U+F7FF
//
// One of these letters that really stands in a native name is shown byte by byte, as if it were no UTF-8. So
// NativeFromText(TextFromNative(name)) is the name again, whatever bytes it is made of.
std::string TextFromNative(std::string_view native);
// ":" and control characters are also taken as they are. Throws Failure for a text that holds a zero character.
std::string NativeFromText(std::string_view text);

}  // namespace qublet

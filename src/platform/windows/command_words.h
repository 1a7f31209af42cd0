#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qublet {

// The words of a command line as the system's own rule has them, without the program's name, but for two things that
// people type here: in "C:\Music\" the quote ends the word, though a backslash stands before it, if what is in the
// quotes is a path with a drive or a folder that is there; and "*" or "?" in the last part of a path stand for the
// files that fit, in ascending order, or for themselves where none does.
std::vector<std::string> CommandWords(std::wstring_view line);

}  // namespace qublet

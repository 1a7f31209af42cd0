#pragma once

#include <string>

namespace qublet {

// Where programs keep what this user sets: $XDG_CONFIG_HOME if it is an absolute path, else ~/.config; "" for a user
// without a home folder. It need not exist.
std::string ConfigFolder();

// Where programs keep what they make for this user: $XDG_DATA_HOME if it is an absolute path, else ~/.local/share; ""
// for a user without a home folder. It need not exist.
std::string DataFolder();

// Makes a native folder and those above it where they are missing. Throws Failure.
void MakeFolders(const std::string& native);

}  // namespace qublet

#pragma once

#include <string>

namespace qublet {

// A variable of the environment, "" for none.
std::string EnvironmentText(const wchar_t* name);

// Native folder where programs keep what they make for this user on this machine. Throws Failure.
std::string LocalDataFolder();

}  // namespace qublet

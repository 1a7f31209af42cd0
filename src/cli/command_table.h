#pragma once

#include <iosfwd>

#include "cli/arguments.h"

namespace qublet {

// Runs what the arguments of the program ask for (its own name left out) and gives the exit code.
int RunCommand(const Arguments& arguments, FileSystem& files, SettingsStore& store, std::ostream& out,
               std::ostream& err);

}  // namespace qublet

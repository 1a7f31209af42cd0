#pragma once

#include <iosfwd>

#include "cli/arguments.h"

namespace qublet {

// Runs what the arguments of the program ask for (its own name left out) and gives the exit code.
// `dialogs` are those of the engine.
int RunCommand(const Arguments& arguments, Engine& engine, PrintedDialogs& dialogs, std::ostream& out,
               std::ostream& err);

}  // namespace qublet

#pragma once

#include "cli/arguments.h"

namespace qublet {

// Prints the places in time of each file.
int PrintPositions(CommandContext& context, bool json);

// Plays the file and goes to one of them, from 1.
int GoToPosition(CommandContext& context, int number);

}  // namespace qublet

#pragma once

#include "desk/commands.h"
#include "desk/desk.h"

namespace qublet {

// "Check for an Update..."
void AddUpdate(Commands& commands, const Desk& desk);

// The check that the program makes by itself; dropped where the user asks for one meanwhile.
void CheckForUpdateQuietly(const Desk& desk);

}  // namespace qublet

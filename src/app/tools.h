#pragma once

#include "desk/commands.h"
#include "desk/desk.h"

namespace qublet {

// Hangs every tool into the menus. `commands` and `desk` live as long as the program.
void AddTools(Commands& commands, const Desk& desk);

}  // namespace qublet

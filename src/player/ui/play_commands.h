#pragma once

#include "desk/commands.h"
#include "desk/desk.h"

namespace qublet {

// The four ways to play, from the menus.
void AddPlayCommands(Commands& commands, const Desk& desk);

}  // namespace qublet

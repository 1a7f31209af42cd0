#pragma once

#include "desk/commands.h"
#include "desk/desk.h"

namespace qublet {

// The commands of the menus that work on the list and on playlist files.
void AddFileCommands(Commands& commands, const Desk& desk);
void AddListCommands(Commands& commands, const Desk& desk);
void AddSorts(Commands& commands, const Desk& desk);
void AddPlaylistStats(Commands& commands, const Desk& desk);

}  // namespace qublet

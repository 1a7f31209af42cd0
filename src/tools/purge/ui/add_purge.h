#pragma once

#include "desk/commands.h"
#include "desk/desk.h"

namespace qublet {

// "Purge Playlist Entries...": the window that selects, removes or restores duplicates and missing items. It is made
// anew each time.
void AddPurge(Commands& commands, const Desk& desk);

}  // namespace qublet

#pragma once

#include "desk/commands.h"
#include "desk/desk.h"

namespace qublet {

// "Search Playlist...": the window that finds rows. It is made at its first use and, as long as it is to be kept
// alive, only hides.
void AddSearch(Commands& commands, const Desk& desk);

}  // namespace qublet

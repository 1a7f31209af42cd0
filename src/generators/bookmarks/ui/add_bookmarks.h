#pragma once

#include "desk/commands.h"
#include "desk/desk.h"

namespace qublet {

// "Bookmarks": the window that keeps the selected items, and the one that adds what was kept, which stays open beside
// the main window. And the commands about the bookmark file of the player.
void AddBookmarks(Commands& commands, const Desk& desk);

}  // namespace qublet

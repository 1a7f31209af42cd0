#pragma once

#include "desk/commands.h"
#include "desk/desk.h"

namespace qublet {

// "Preferences...", in the menus and on the toolbar.
void AddPreferences(Commands& commands, const Desk& desk);

}  // namespace qublet

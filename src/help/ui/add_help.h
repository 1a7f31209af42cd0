#pragma once

#include "desk/commands.h"
#include "desk/desk.h"

namespace qublet {

// The help: its commands open the contents, F1 in any window but the main one the page of that window.
void AddHelp(Commands& commands, const Desk& desk);

}  // namespace qublet

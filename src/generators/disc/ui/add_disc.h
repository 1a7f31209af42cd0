#pragma once

#include "desk/commands.h"
#include "desk/desk.h"

namespace qublet {

// The wizard that prepares a music disc. `desk` outlives the commands.
void AddDisc(Commands& commands, const Desk& desk);

}  // namespace qublet

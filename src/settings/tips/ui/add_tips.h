#pragma once

#include "desk/commands.h"
#include "desk/desk.h"

namespace qublet {

// "Tip of the Day"
void AddTips(Commands& commands, const Desk& desk);

}  // namespace qublet

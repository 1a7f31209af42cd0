#pragma once

#include "desk/commands.h"
#include "desk/desk.h"

namespace qublet {

// "Autocreate M3U's...": the wizard that writes a playlist for each folder of the list. It is made anew each time.
void AddAutoCreate(Commands& commands, const Desk& desk);

}  // namespace qublet

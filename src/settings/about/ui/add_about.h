#pragma once

#include "desk/commands.h"
#include "desk/desk.h"

namespace qublet {

// "About", "Visit Velmora Website" and "Read Me File...".
void AddAbout(Commands& commands, const Desk& desk);

}  // namespace qublet

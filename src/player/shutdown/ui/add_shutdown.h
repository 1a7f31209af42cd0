#pragma once

#include "desk/commands.h"
#include "desk/desk.h"

namespace qublet {

// "Shutdown PC when WinAmp stops playing...". What is counted lasts as long as the binding.
void AddShutdown(Commands& commands, const Desk& desk);

}  // namespace qublet

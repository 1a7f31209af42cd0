#pragma once

#include "desk/commands.h"
#include "desk/desk.h"

namespace qublet {

// "Generate Report...": the wizard that writes a report of the whole list. It is made anew each time.
void AddReport(Commands& commands, const Desk& desk);

}  // namespace qublet

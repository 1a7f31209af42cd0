#pragma once

#include "desk/commands.h"
#include "desk/desk.h"

namespace qublet {

// "Rectify MP3 Filenames...": the window that renames the files of the selected rows. It is made at its first use and
// then only hides, so that the last run can be undone until the program ends.
void AddRename(Commands& commands, const Desk& desk);

}  // namespace qublet

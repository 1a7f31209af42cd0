#pragma once

#include "desk/commands.h"
#include "desk/desk.h"

namespace qublet {

// "Edit ID3 &Tag..": the window that shows and changes the tags of the selected files.
void AddTagEditor(Commands& commands, const Desk& desk);

}  // namespace qublet

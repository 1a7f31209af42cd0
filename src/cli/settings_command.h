#pragma once

#include "cli/arguments.h"

namespace qublet {

// The stored settings of this version of the program, for the arguments behind "settings":
//
//   list                    every stored value, one a line: section, key and value with a tab between (no arguments
//                           mean the same)
//   get SECTION KEY         the value
//   set SECTION KEY VALUE   keeps the value; one that the program couldn't read back is refused
//
// The result is the exit code: 0, 1 (no such value, or it can't be kept), 2 (wrong use).
int SettingsCommand(CommandContext& context);

}  // namespace qublet

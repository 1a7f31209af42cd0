#pragma once

#include "cli/arguments.h"

namespace qublet {

// "restore [--in FOLDER]... [--use-folders] PATH...": looks for missing files on all drives, or below the folders,
// and takes the first suggestion for each old folder. Prints a line a missing row: old path TAB path there, which is
// empty where the file isn't in that folder. With "--save OUT [--relative] [--replace]" it saves the list so restored
// too.
int RestoreCommand(CommandContext& context);

}  // namespace qublet

#pragma once

#include "cli/arguments.h"

namespace qublet {

// "purge --duplicates [--by name|folder|path] [--fold-case] [--all] PATH..." and "purge --missing PATH...": prints
// the rows found, number TAB full path. With "--save OUT [--relative] [--replace]" it prints none and saves the list
// without them.
int PurgeCommand(CommandContext& context);

}  // namespace qublet

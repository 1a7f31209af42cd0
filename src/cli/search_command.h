#pragma once

#include "cli/arguments.h"

namespace qublet {

// "search [--in COLUMNS] [--case] TEXT PATH...": prints the number (from 1) and the full path of each row that holds
// the text in one of the columns.
int SearchCommand(CommandContext& context);

}  // namespace qublet

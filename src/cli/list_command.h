#pragma once

#include "cli/arguments.h"

namespace qublet {

// Adds what the arguments name to the list, as a drop on the list would. False when a path isn't there, holds
// nothing for the list or more than it has room for: each is told to `err`, the others are added all the same.
bool AddPaths(CommandContext& context, const Arguments& paths);

// Appends the full paths of the rows that would make, and reads no file for it. False as above, for paths beyond what
// the list has room for too.
bool ExpandPaths(CommandContext& context, const Arguments& arguments, Collection& paths);

// "list [--json] PATH...": the rows, tab-separated below a line of the column texts, or one JSON object a line.
int ListCommand(CommandContext& context);

}  // namespace qublet

#pragma once

#include "cli/arguments.h"

namespace qublet {

// `qublet disc`: whether a folder fits on a disc, and what makes a disc of it.
int DiscCommand(CommandContext& context);

}  // namespace qublet

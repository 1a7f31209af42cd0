#pragma once

#include "cli/arguments.h"

namespace qublet {

// "scheme list | save NAME|current FILE.dps [--replace] | apply NAME|FILE.dps": the looks of the list.
int SchemeCommand(CommandContext& context);

}  // namespace qublet

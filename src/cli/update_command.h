#pragma once

#include <chrono>

#include "cli/arguments.h"

namespace qublet {

// "update": whether the maker's site has a newer version than this one. A server that hasn't ended after 20 seconds
// has failed.
int UpdateCommand(CommandContext& context);

// The same with another patience.
int AskForUpdate(CommandContext& context, std::chrono::milliseconds patience);

}  // namespace qublet

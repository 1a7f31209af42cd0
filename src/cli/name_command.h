#pragma once

#include "cli/arguments.h"

namespace qublet {

// "name FORMAT PATH": the playlist name that a naming format gives for a path. Both texts are taken as given.
int NameCommand(CommandContext& context);

}  // namespace qublet

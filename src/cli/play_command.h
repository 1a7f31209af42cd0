#pragma once

#include "cli/arguments.h"

namespace qublet {

// "play PATH...": has what the paths hold opened in the program that opens playlists.
int PlayCommand(CommandContext& context);

}  // namespace qublet

#pragma once

#include "cli/arguments.h"
#include "platform/associations.h"
#include "platform/shell.h"

namespace qublet {

// "play PATH...": has what the paths hold opened in the program that opens playlists.
int PlayCommand(CommandContext& context);
int PlayWith(CommandContext& context, Shell& shell, const Associations& associations,
             const std::string& program_folder);

}  // namespace qublet

#pragma once

#include "cli/arguments.h"

namespace qublet {

// "autocreate [--in base|root|both | --to FOLDER] [--format F] [--dry-run] PATH...": writes a playlist for each
// folder of what the paths hold and prints what the wizard would report of it. A dry run ends ahead of the first
// file.
int AutoCreateCommand(CommandContext& context);

}  // namespace qublet

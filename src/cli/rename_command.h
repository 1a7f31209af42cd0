#pragma once

#include "cli/arguments.h"

namespace qublet {

// `qublet rename`: renames files by rules, tries the rules, keeps them, and takes runs back.
int RenameCommand(CommandContext& context);

}  // namespace qublet

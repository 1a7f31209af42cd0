#pragma once

#include "cli/arguments.h"

namespace qublet {

// "completion bash|zsh|fish": prints the script by which that shell completes the commands, their words, options and
// files.
int CompletionCommand(CommandContext& context);

}  // namespace qublet

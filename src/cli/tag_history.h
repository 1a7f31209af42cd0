#pragma once

#include <string>

#include "cli/arguments.h"

namespace qublet {

// The runs that changed tags, the newest first.
int PrintTagHistory(CommandContext& context, bool json);
// `run` is a number of the history, or "last" for the newest run that isn't undone.
int UndoTags(CommandContext& context, const std::string& run);

}  // namespace qublet

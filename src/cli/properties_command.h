#pragma once

#include "cli/arguments.h"

namespace qublet {

// "properties PATH...": the summary of what the paths hold, a caption and a text a line, parted by a tab.
int PropertiesCommand(CommandContext& context);

}  // namespace qublet

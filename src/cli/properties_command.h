#pragma once

#include "cli/arguments.h"
#include "platform/associations.h"

namespace qublet {

// "properties PATH...": the summary of what the paths hold, a caption and a text a line, parted by a tab.
int PropertiesCommand(CommandContext& context);
int PrintProperties(CommandContext& context, const Associations& associations, const std::string& program_folder);

}  // namespace qublet

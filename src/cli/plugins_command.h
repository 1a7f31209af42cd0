#pragma once

#include "cli/arguments.h"

namespace qublet {

// "plugins [list]": prints number, name, description and path of each plug-in, parted by tabs.
// "plugins run N PATH...": hands what the paths hold to one of them, without waiting for it.
int PluginsCommand(CommandContext& context);

}  // namespace qublet

#pragma once

#include "cli/arguments.h"

namespace qublet {

// "save [--relative] [--replace] OUT PATH...": writes a playlist (.m3u or .m3u8) of what the paths hold. Refuses to
// replace a file without --replace.
int SaveCommand(CommandContext& context);

}  // namespace qublet

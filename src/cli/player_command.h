#pragma once

#include "cli/arguments.h"

namespace qublet {

// "player [status | stop | jump SECONDS]": what the player does, or makes it do something. The status is a name and a
// value a line: "program", "state" (playing, paused, stopped), "position" in seconds unless it is stopped.
int PlayerCommand(CommandContext& context);

}  // namespace qublet

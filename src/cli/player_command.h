#pragma once

#include "cli/arguments.h"
#include "platform/associations.h"
#include "platform/player_window.h"

namespace qublet {

// "player [status | stop | jump SECONDS]": what the player does, or makes it do something. The status is a name and a
// value a line: "program", "state" (playing, paused, stopped), "position" in seconds unless it is stopped.
int PlayerCommand(CommandContext& context);
int SteerPlayer(CommandContext& context, const Associations& associations, PlayerWindows& players,
                const std::string& program_folder);

}  // namespace qublet

#pragma once

#include <cstdint>

#include "platform/background.h"
#include "platform/player_window.h"
#include "player/player_link.h"
#include "player/preview.h"

namespace qublet {

// Waits until a player that was just started plays, as long as this system's players take, and has it go on from
// there, whether it plays by then or not. `bystander` is one that played something else already: another is waited
// for first. Gives that player, "" when there was none. Takes up to some seconds.
PlayerHandle JumpWhenPlaying(PlayerWindows& players, const AssociatedProgram& program, std::int32_t milliseconds,
                             const PlayerHandle& bystander = "");

// Stops the player last seen, has the selected rows played, and goes there in what comes up. That player is the one
// last seen from now on; "" when none came.
PlayerHandle PlaySelectedFrom(PlayerLink& link, Preview& preview, PlayerWindows& players, std::int32_t milliseconds,
                              Background& background);

}  // namespace qublet

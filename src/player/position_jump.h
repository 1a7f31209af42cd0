#pragma once

#include <cstdint>

#include "platform/player_window.h"

namespace qublet {

// Waits until a player that was just started plays, as long as this system's players take, and has it go on from
// there, whether it plays by then or not. Gives that player, "" when there was none. Takes up to some seconds.
PlayerHandle JumpWhenPlaying(PlayerWindows& players, const AssociatedProgram& program, std::int32_t milliseconds);

}  // namespace qublet

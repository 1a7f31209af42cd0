#pragma once

#include <cstdint>
#include <string>

namespace qublet {

// How long the player has been silent. It lives as long as the process, whichever windows come and go.
struct ShutdownCount {
  std::int16_t SilentSeconds = 0;  // no playback for so long
  std::int16_t PlayingPhase = 0;   // 0 to 3: the next text about playing
};

inline constexpr std::int16_t kSilentSecondsAtMost = 25;

// What a second of watching comes to.
struct ShutdownTick {
  std::string Label2;       // "" leaves the line as it was
  bool shuts_down = false;  // the time is over
};

// A second more, with the player at that place in milliseconds: stopped (below 0) and in the first second of a track
// it is silent, paused behind that it isn't. kNoAnswer leaves all as it was.
ShutdownTick CountSecond(std::int32_t position, ShutdownCount& count);

}  // namespace qublet

#include "player/shutdown/shutdown_count.h"

#include "platform/player_window.h"

namespace qublet {
namespace {

constexpr std::int32_t kFirstSecond = 999;         // milliseconds
constexpr std::int16_t kSilenceBetweenTracks = 2;  // seconds that aren't worth a word
constexpr std::int16_t kPhases = 4;

}  // namespace

ShutdownTick CountSecond(std::int32_t position, ShutdownCount& count) {
  ShutdownTick tick;
  if (position == kNoAnswer) return tick;
  if (position > kFirstSecond) {
    tick.Label2 = "Playing" + std::string(static_cast<std::size_t>(count.PlayingPhase) + 1, '.');
    count.PlayingPhase = static_cast<std::int16_t>((count.PlayingPhase + 1) % kPhases);
    count.SilentSeconds = 0;
    return tick;
  }
  if (count.SilentSeconds >= kSilenceBetweenTracks)
    tick.Label2 = "Shutting down in " + std::to_string(kSilentSecondsAtMost - count.SilentSeconds) + " Seconds...";
  ++count.SilentSeconds;
  if (count.SilentSeconds == kSilentSecondsAtMost + 1) {
    tick.Label2 = "Shutting Down Windows...";
    tick.shuts_down = true;
  }
  return tick;
}

}  // namespace qublet

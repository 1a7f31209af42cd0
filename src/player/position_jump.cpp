#include "player/position_jump.h"

#include <thread>

namespace qublet {
namespace {

using Steady = std::chrono::steady_clock;

PlayerHandle WaitForPlayer(PlayerWindows& players, const AssociatedProgram& program, const PlayerStart& start,
                           const PlayerHandle& bystander) {
  const Steady::time_point end = Steady::now() + start.appears;
  PlayerHandle player = players.Find(program);
  while ((player.empty() || player == bystander) && Steady::now() < end) {
    std::this_thread::sleep_for(start.pause);
    player = players.Find(program);
  }
  return player;
}

bool Plays(PlayerWindows& players, const PlayerHandle& player, const PlayerStart& start) {
  return players.State(player) == kPlaying && (!start.says_so_early || players.Position(player) > 0);
}

// One that goes on playing after the last one seen was stopped.
PlayerHandle Bystander(PlayerWindows& players, const AssociatedProgram& program) {
  PlayerHandle player = players.Find(program);
  return players.State(player) == kPlaying ? player : PlayerHandle();
}

}  // namespace

PlayerHandle JumpWhenPlaying(PlayerWindows& players, const AssociatedProgram& program, std::int32_t milliseconds,
                             const PlayerHandle& bystander) {
  const PlayerStart start = players.Start();
  PlayerHandle player = WaitForPlayer(players, program, start, bystander);
  if (player.empty()) return player;
  const Steady::time_point end = Steady::now() + start.plays;
  for (int asked = 1; !Plays(players, player, start) && asked < start.questions && Steady::now() < end; ++asked) {
    std::this_thread::sleep_for(start.pause);
    if (!start.anew) continue;
    // The one that was there may have been the one that ends now.
    if (PlayerHandle other = players.Find(program); !other.empty()) player = std::move(other);
  }
  players.Jump(player, milliseconds);
  return player;
}

PlayerHandle PlaySelectedFrom(PlayerLink& link, Preview& preview, PlayerWindows& players, std::int32_t milliseconds,
                              Background& background) {
  const AssociatedProgram program = link.PlayerProgram();
  PlayerHandle bystander, player;
  background.Do([&] {
    players.Stop(link.PlayerWindow);
    if (players.Start().anew) bystander = Bystander(players, program);
  });
  preview.Play(kPlaySelected);
  background.Do([&] { player = JumpWhenPlaying(players, program, milliseconds, bystander); });
  link.PlayerWindow = player;
  return player;
}

}  // namespace qublet

#include "cli/player_command.h"

#include <array>
#include <cstdio>
#include <ostream>

#include "playlist/own_playlists.h"
#include "playlist/paths/numbers.h"

namespace qublet {
namespace {

const char* StateText(PlayingState state) {
  return state == kPlaying ? "playing" : state == kPaused ? "paused" : "stopped";
}

int PrintStatus(CommandContext& context, const std::string& program, PlayerWindows& players,
                const PlayerHandle& player) {
  context.out << "program\t" << program << "\nstate\t" << StateText(players.State(player)) << "\n";
  const std::int32_t position = players.Position(player);
  if (position < 0) return kDone;
  std::array<char, 32> seconds{};
  std::snprintf(seconds.data(), seconds.size(), "%d.%03d", position / 1000, position % 1000);
  context.out << "position\t" << seconds.data() << "\n";
  return kDone;
}

// Milliseconds; nothing for a text that is no time.
std::optional<std::int32_t> TimeFrom(const std::string& text) {
  std::optional<std::int32_t> time;
  ResumeNext([&] { time = RoundHalfEven(TextToNumber(text) * 1000); });
  return time && *time >= 0 ? time : std::nullopt;
}

}  // namespace

int PlayerCommand(CommandContext& context) {
  const Arguments& arguments = context.arguments;
  const std::string verb = arguments.empty() ? "status" : arguments[0];
  const bool jump = verb == "jump" && arguments.size() == 2;
  const std::optional<std::int32_t> time = jump ? TimeFrom(arguments[1]) : std::nullopt;
  if (jump && !time) return Complain(context.err, "player: no time in seconds: " + arguments[1], kWrongUse);
  if (!jump && !((verb == "status" || verb == "stop") && arguments.size() <= 1))
    return Complain(context.err, "player: status, stop or jump SECONDS is wanted", kWrongUse);

  Engine& engine = context.engine;
  PlayerWindows& players = engine.services.players;
  const std::string program = engine.services.associations.FindAssociatedProgram(TempPlaylist(engine.program_folder));
  const PlayerWindows::Action action(players);
  const PlayerHandle player = engine.player.FindPlayerWindow();
  if (player.empty()) {
    const std::string name = program.empty() ? "no program opens playlists here" : program + " doesn't run";
    return Complain(context.err, "player: " + name, kCouldNot);
  }
  if (verb == "status") return PrintStatus(context, program, players, player);
  jump ? players.Jump(player, *time) : players.Stop(player);
  return kDone;
}

}  // namespace qublet

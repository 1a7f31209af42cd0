#include "cli/player_command.h"

#include <array>
#include <cstdio>
#include <ostream>

#include "player/player_link.h"
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

int SteerPlayer(CommandContext& context, const Associations& associations, PlayerWindows& players,
                const std::string& program_folder) {
  const Arguments& arguments = context.arguments;
  const std::string verb = arguments.empty() ? "status" : arguments[0];
  const bool jump = verb == "jump" && arguments.size() == 2;
  const std::optional<std::int32_t> time = jump ? TimeFrom(arguments[1]) : std::nullopt;
  if (jump && !time) return Complain(context.err, "player: no time in seconds: " + arguments[1], kWrongUse);
  if (!jump && !((verb == "status" || verb == "stop") && arguments.size() <= 1))
    return Complain(context.err, "player: status, stop or jump SECONDS is wanted", kWrongUse);

  Document document;
  PlayerLink link(document, {context.files, associations, players}, program_folder);
  const std::string program = associations.FindAssociatedProgram(TempPlaylist(program_folder));
  const PlayerWindows::Action action(players);
  const PlayerHandle player = link.FindPlayerWindow();
  if (player.empty()) {
    const std::string name = program.empty() ? "no program opens playlists here" : program + " doesn't run";
    return Complain(context.err, "player: " + name, kCouldNot);
  }
  if (verb == "status") return PrintStatus(context, program, players, player);
  jump ? players.Jump(player, *time) : players.Stop(player);
  return kDone;
}

int PlayerCommand(CommandContext& context) {
  const auto players = OpenPlayerWindows();
  return SteerPlayer(context, *OpenAssociations(context.files), *players, OwnFolder(context.files));
}

}  // namespace qublet

#include "cli/play_command.h"

#include "cli/list_command.h"
#include "playlist/own_playlists.h"

namespace qublet {

int PlayCommand(CommandContext& context) {
  if (!OnlyPaths(context, "play")) return kWrongUse;
  Engine& engine = context.engine;
  if (engine.services.associations.FindAssociatedProgram(TempPlaylist(engine.program_folder)).empty())
    return Complain(context.err, "play: no program opens playlists here", kCouldNot);

  const bool all_there = AddPaths(context, context.arguments);
  engine.preview.Play(kPlayList);
  return all_there && !context.dialogs.said_something ? kDone : kCouldNot;
}

}  // namespace qublet

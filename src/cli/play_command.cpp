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
  const bool started = engine.preview.Play(kPlayList);
  const bool wanted = engine.document.ListView1.Count() > 0 && !context.dialogs.said_something;
  if (wanted && !started) return Complain(context.err, "play: no program could be started", kCouldNot);
  return all_there && !context.dialogs.said_something ? kDone : kCouldNot;
}

}  // namespace qublet

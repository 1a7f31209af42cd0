#include "player/ui/play_commands.h"

namespace qublet {

void AddPlayCommands(Commands& commands, const Desk& desk) {
  const auto bind = [&](CommandName command, PreviewMode mode) {
    commands.Bind(command, [&preview = desk.engine.preview, mode] { preview.Play(mode); });
  };
  bind("MEditPlaySel", kPlaySelected);
  bind("MEditPlayFol", kPlayFolder);
  bind("MEditPlayLoc", kPlayFrom);
  bind("MEditPlayList", kPlayList);
}

}  // namespace qublet

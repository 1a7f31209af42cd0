#include "player/shutdown/ui/add_shutdown.h"

#include <memory>

#include "player/shutdown/ui/frmEXWIN.h"

namespace qublet {

void AddShutdown(Commands& commands, const Desk& desk) {
  commands.Bind("MToolsWinampShutDown", [&desk, count = std::make_shared<ShutdownCount>()] {
    if (!BeginShutdown(desk.engine, desk.background)) return;
    frmEXWIN form(desk.engine, desk.background, *count, &desk.main);
    desk.ShowModal(form);
  });
}

}  // namespace qublet

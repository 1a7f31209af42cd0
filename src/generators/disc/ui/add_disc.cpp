#include "generators/disc/ui/add_disc.h"

#include "generators/disc/ui/MP3CDWizard.h"

namespace qublet {

void AddDisc(Commands& commands, const Desk& desk) {
  commands.Bind("MToolsMP3CDWiz", [&desk] {
    MP3CDWizard wizard(desk.engine, &desk.main);
    desk.ShowModal(wizard);
  });
}

}  // namespace qublet

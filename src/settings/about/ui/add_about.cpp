#include "settings/about/ui/add_about.h"

#include "settings/about/ui/frmAbout.h"
#include "settings/application.h"

namespace qublet {

void AddAbout(Commands& commands, const Desk& desk) {
  commands.Bind("MHelpAbout", [&desk] {
    frmAbout window(desk.engine.services, &desk.main);
    desk.ShowModal(window);
  });
  commands.Bind("MHelpWebsite", [&desk] { desk.engine.services.shell.OpenAddress(Site()); });
  commands.Bind("MHelpReadme", [&desk] {
    const std::string file = desk.engine.CompanionFile("ReadMe.txt");
    if (!file.empty()) desk.engine.services.shell.Open(file);
  });
}

}  // namespace qublet

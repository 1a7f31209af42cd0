#include "help/ui/add_help.h"

#include "help/ui/help_pages.h"

namespace qublet {

void AddHelp(Commands& commands, const Desk& desk) {
  auto* pages = new HelpPages(desk);
  for (const CommandName command : {CommandName("MHelpHelp"), CommandName("MHelpQuickguide")})
    commands.Bind(command, [pages] { pages->ShowContents(); });
}

}  // namespace qublet

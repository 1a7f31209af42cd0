#include "settings/preferences/ui/add_preferences.h"

#include "settings/preferences/ui/frmOptions.h"

namespace qublet {

void AddPreferences(Commands& commands, const Desk& desk) {
  const auto open = [&desk] {
    frmOptions window(desk.engine, &desk.main);
    desk.ShowModal(window);
  };
  commands.Bind("MToolOptions", open);
  commands.Bind("MHidOptionShow", open);
}

}  // namespace qublet

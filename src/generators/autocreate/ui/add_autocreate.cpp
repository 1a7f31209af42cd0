#include "generators/autocreate/ui/add_autocreate.h"

#include "generators/autocreate/ui/AutoCreateWizard.h"

namespace qublet {

void AddAutoCreate(Commands& commands, const Desk& desk) {
  commands.Bind("MToolsM3UWiz", [&desk] {
    if (!desk.HasItems()) return;
    AutoCreateWizard form(desk.engine, &desk.main);
    desk.ShowModal(form);
  });
}

}  // namespace qublet

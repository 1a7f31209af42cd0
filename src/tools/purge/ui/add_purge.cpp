#include "tools/purge/ui/add_purge.h"

#include "tools/purge/ui/FilterForm.h"

namespace qublet {

void AddPurge(Commands& commands, const Desk& desk) {
  commands.Bind("MToolsFilter", [&desk] {
    FilterForm form(desk.engine, desk.feedback, &desk.main);
    desk.ShowModal(form);
  });
}

}  // namespace qublet

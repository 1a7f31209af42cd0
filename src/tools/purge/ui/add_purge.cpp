#include "tools/purge/ui/add_purge.h"

#include <QPointer>

#include "tools/purge/ui/FilterForm.h"

namespace qublet {

void AddPurge(Commands& commands, const Desk& desk) {
  commands.Bind("MToolsFilter", [&desk, form = QPointer<FilterForm>()]() mutable {
    if (!form) form = new FilterForm(desk.engine, desk.feedback, &desk.main);
    desk.ShowModal(*form);
  });
}

}  // namespace qublet

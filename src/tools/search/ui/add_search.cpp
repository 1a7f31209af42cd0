#include "tools/search/ui/add_search.h"

#include <QPointer>

#include "tools/search/ui/frmSearch.h"

namespace qublet {

void AddSearch(Commands& commands, const Desk& desk) {
  commands.Bind("MToolsSearch", [&desk, form = QPointer<frmSearch>()]() mutable {
    if (!desk.HasItems()) return;
    if (!form) form = new frmSearch(desk.engine, &desk.main);
    desk.ShowModal(*form);
    if (form && !form->KeepsAlive()) delete form;
  });
}

}  // namespace qublet

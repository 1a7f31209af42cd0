#include "tools/rename/ui/add_rename.h"

#include <QPointer>

#include "tools/rename/ui/RenameForm.h"

namespace qublet {

void AddRename(Commands& commands, const Desk& desk) {
  commands.Bind("MToolsRename", [&desk, form = QPointer<RenameForm>()]() mutable {
    if (!form) form = new RenameForm(desk.engine, &desk.main);
    desk.ShowModal(*form);
  });
}

}  // namespace qublet

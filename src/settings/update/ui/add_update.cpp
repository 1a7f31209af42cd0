#include "settings/update/ui/add_update.h"

#include "settings/update/ui/UpdateCheck.h"

namespace qublet {
namespace {

// Nothing when there is none.
UpdateCheck* UnderWay(const Desk& desk) {
  for (UpdateCheck* check : desk.main.findChildren<UpdateCheck*>(QString(), Qt::FindDirectChildrenOnly)) {
    if (check->UnderWay()) return check;
  }
  return nullptr;
}

}  // namespace

void AddUpdate(Commands& commands, const Desk& desk) {
  commands.Bind("MHelpUpdate", [&desk] {
    UpdateCheck* const check = UnderWay(desk);
    if (check != nullptr && check->Asked()) return;
    delete check;
    new UpdateCheck(desk, UpdateCheck::Manner::kAsked);
  });
}

void CheckForUpdateQuietly(const Desk& desk) {
  if (UnderWay(desk) == nullptr) new UpdateCheck(desk, UpdateCheck::Manner::kQuiet);
}

}  // namespace qublet

#include "settings/tips/ui/add_tips.h"

#include "settings/tips/ui/frmTip.h"

namespace qublet {

void AddTips(Commands& commands, const Desk& desk) {
  commands.Bind("MHelpTip", [&desk] {
    frmTip window(desk.engine, &desk.main);
    desk.ShowModal(window);
  });
}

}  // namespace qublet

#include "app/program.h"

#include "app/tools.h"
#include "playlist/paths/formats.h"
#include "settings/update/ui/add_update.h"

namespace qublet {

Program::Program(const Services& services, WindowFeedback& feedback, const Session::Places& places)
    : engine(services, places, UserThousandsSeparator()),
      commands(feedback),
      main(engine, commands, feedback),
      desk{engine, main, feedback, worker} {
  AddTools(commands, desk);
  QObject::connect(&main, &Main::updateCheckDue, &main, [this] { CheckForUpdateQuietly(desk); });
}

void Program::TellOfWantOfMemory() {
  engine.services.dialogs.ShowMessage("There is not enough memory for this.", MessageIcon::kStop,
                                      MessageButtons::kOk);
}

}  // namespace qublet

#include "generators/report/ui/add_report.h"

#include "generators/report/ui/ReportForm.h"

namespace qublet {

void AddReport(Commands& commands, const Desk& desk) {
  commands.Bind("MToolsReport", [&desk] {
    if (!desk.HasItems()) return;
    ReportForm form(desk.engine, &desk.main);
    desk.ShowModal(form);
  });
}

}  // namespace qublet

#pragma once

#include "cli/arguments.h"

namespace qublet {

// "report [--settings FILE.rpt] [--set FIELD=VALUE]... [--columns N,N,...] [--replace] OUT PATH...": a page, or for
// an OUT that ends in ".txt" a table, of what the paths hold. With "--save-settings FILE.rpt" in place of OUT and
// PATH the settings are kept.
int ReportCommand(CommandContext& context);

}  // namespace qublet

#pragma once

#include <string>
#include <utility>
#include <vector>

#include "cli/arguments.h"
#include "generators/report/report_settings.h"

namespace qublet {

// What `qublet report` is asked for.
struct ReportOptions {
  std::string settings_file;  // to start from; "" for the defaults
  std::vector<std::pair<std::string, std::string>> settings;
  std::vector<std::int16_t> columns;  // the checked ones in their order; empty as the settings have them
  std::string saved_settings;         // the file to write instead of a report; "" for a report
  bool replace = false;
};

// Takes them out of the arguments; what stays is the report's name and the paths. Throws Failure, which is wrong use.
ReportOptions TakeReportOptions(Arguments& arguments);

// The fields from the first to the last, then the columns; others follow unchecked, in the order of their numbers.
void ApplyOptions(const ReportOptions& options, ReportSettings& settings);

}  // namespace qublet

#pragma once

#include <functional>
#include <string>

#include "generators/report/report_settings.h"
#include "platform/clock.h"
#include "platform/file_system.h"
#include "playlist/paths/collections.h"

namespace qublet {

// The bar that shows how far a report has come, painted at each call.
using ReportProgress = std::function<void(int value, int maximum)>;

struct ReportResult {
  bool exists = false;  // a file is there, though it may be an older one
  Outcome written;      // the report is in it, to its end
};

// What reports need beside their settings.
struct ReportServices {
  const FileSystem& files;
  const Clock& clock;
  std::string thousands_separator;
  bool own_file = false;  // what is written is the program's own, made to be looked at
};

// Writes a page or a table with a row for each file to `path`, replacing a file that is there. A file that can't be
// read has an empty row; nothing stops a report. Title and description of `settings` are trimmed, and cleared where
// they are the placeholders. Never throws.
ReportResult GenerateReport(const ReportServices& services, const std::string& path, const Collection& files,
                            ReportSettings& settings, const ReportProgress& progress);

// `value` cut or filled up to `width` characters, of which the last is a blank. Takes one from `width`, and throws
// Failure when nothing is left.
std::string PadColumn(std::string value, std::int16_t& width);
std::string RepeatText(int count, std::string_view text);
// "hh:mm:ss [MM-DD-YYYY]".
std::string TimeAndDate(const LocalTime& now);

}  // namespace qublet

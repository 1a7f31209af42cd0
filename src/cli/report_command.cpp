#include "cli/report_command.h"

#include "cli/list_command.h"
#include "cli/report_options.h"
#include "generators/report/report_engine.h"
#include "platform/program.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

// False when it is told that they can't be read.
bool LoadSettingsFrom(CommandContext& context, const std::string& file, ReportSettings& settings) {
  LoadDefaults(settings);
  if (file.empty()) return true;
  const Outcome read =
      Attempt([&] { LoadReportSettings(context.files, PathFromArgument(context.files, file), settings).OrThrow(); });
  if (!read) Complain(context.err, file + ": " + read.Reason(), kCouldNot);
  return static_cast<bool>(read);
}

int SaveSettingsTo(CommandContext& context, const std::string& file, const ReportSettings& settings) {
  const Outcome saved =
      Attempt([&] { SaveReportSettings(context.files, PathFromArgument(context.files, file), settings).OrThrow(); });
  return saved ? kDone : Complain(context.err, file + ": " + saved.Reason(), kCouldNot);
}

int WriteReport(CommandContext& context, const ReportOptions& options, ReportSettings& settings) {
  const Arguments& arguments = context.arguments;
  std::string target;
  const Outcome named = Attempt([&] { target = FileToWrite(context, arguments[0], options.replace); });
  if (!named) return Complain(context.err, arguments[0] + ": " + named.Reason(), kCouldNot);
  Collection paths;
  if (!ExpandPaths(context, {arguments.begin() + 1, arguments.end()}, paths)) return kCouldNot;
  const ReportResult result =
      GenerateReport({context.files, context.engine.services.clock, context.engine.thousands_separator}, target,
                     paths, settings, [](int, int) {});
  return result.written ? kDone : Complain(context.err, arguments[0] + ": " + result.written.Reason(), kCouldNot);
}

std::int16_t TypeByName(const std::string& file) {
  return LowerCase(GetExtension(GetFileName(file))) == ".txt" ? kTextReport : kHtmlReport;
}

}  // namespace

int ReportCommand(CommandContext& context) {
  Arguments& arguments = context.arguments;
  ReportOptions options;
  const Outcome taken = Attempt([&] { options = TakeReportOptions(arguments); });
  if (!taken) return Complain(context.err, "report: " + taken.Reason(), kWrongUse);
  const std::string unknown = UnknownOption(context);
  if (!unknown.empty()) return Complain(context.err, "report: unknown option " + unknown, kWrongUse);
  const bool saves = !options.saved_settings.empty();
  if (saves && (!arguments.empty() || options.replace))
    return Complain(context.err, "report: --save-settings makes no report, so it wants neither a path nor --replace",
                    kWrongUse);
  if (!saves && arguments.size() < 2)
    return Complain(context.err, "report: the report's name and a path are wanted", kWrongUse);

  ReportSettings settings;
  if (!LoadSettingsFrom(context, options.settings_file, settings)) return kCouldNot;
  if (!saves) settings.RepType = TypeByName(arguments[0]);
  ApplyOptions(options, settings);
  return saves ? SaveSettingsTo(context, options.saved_settings, settings) : WriteReport(context, options, settings);
}

}  // namespace qublet

#include "cli/autocreate_command.h"

#include <ostream>
#include <utility>

#include "cli/list_command.h"
#include "generators/autocreate/autocreate_run.h"

namespace qublet {
namespace {

struct AutoCreateOptions {
  AutoCreateMode mode = AutoCreateMode::kBaseFolderOnly;
  std::string to;  // as it was typed
  std::string format = kDefaultNamingFormat;
  bool dry_run = false;
};

AutoCreateMode ModeNamed(const std::string& word) {
  if (word == "base") return AutoCreateMode::kBaseFolderOnly;
  if (word == "root") return AutoCreateMode::kRootFolderOnly;
  if (word == "both") return AutoCreateMode::kBothFolders;
  throw Failure("--in takes base, root or both, not " + word);
}

AutoCreateOptions TakeAutoCreateOptions(Arguments& arguments) {
  AutoCreateOptions options;
  const auto in = TakeValue(arguments, "--in");
  const auto to = TakeValue(arguments, "--to");
  if (in && to) throw Failure("--in and --to don't go together");
  if (in) options.mode = ModeNamed(*in);
  if (to) {
    options.mode = AutoCreateMode::kMyFolderOnly;
    options.to = *to;
  }
  options.format = TakeValue(arguments, "--format").value_or(kDefaultNamingFormat);
  options.dry_run = TakeOption(arguments, "--dry-run");
  return options;
}

// With a "\" at its end. Throws Failure.
std::string TargetFolder(const CommandContext& context, const std::string& argument) {
  std::string folder = FolderFromArgument(context, argument);
  if (!folder.ends_with('\\')) folder += '\\';
  return folder;
}

}  // namespace

int AutoCreateCommand(CommandContext& context) {
  AutoCreateOptions options;
  const Outcome taken = Attempt([&] { options = TakeAutoCreateOptions(context.arguments); });
  if (!taken) return Complain(context.err, "autocreate: " + taken.Reason(), kWrongUse);
  if (!OnlyPaths(context, "autocreate")) return kWrongUse;

  AutoCreateOrder order;
  order.mode = options.mode;
  order.Parameters = options.format;
  if (order.mode == AutoCreateMode::kMyFolderOnly) {
    const Outcome found = Attempt([&] { order.MyFolder = TargetFolder(context, options.to); });
    if (!found) return Complain(context.err, options.to + ": " + found.Reason(), kCouldNot);
  }
  if (!ExpandPaths(context, context.arguments, order.FileArray)) return kCouldNot;
  order.Paths = FoldersThatExist(context.files, order.FileArray);
  if (order.Paths.empty()) return Complain(context.err, kNoFolderToAutoCreate, kCouldNot);

  AutoCreateWatch watch;
  watch.report = [&](const std::string& line) { context.out << line << "\n"; };
  const AutoCreateResult result =
      CreatePlaylists(std::move(order), context.files, context.engine.services.clock, watch, options.dry_run);
  const bool checked = result.end == AutoCreateEnd::kChecked;
  return checked || (result.end == AutoCreateEnd::kWritten && result.failed == 0) ? kDone : kCouldNot;
}

}  // namespace qublet

#include "cli/rename_command.h"

#include <ostream>

#include "cli/json_text.h"
#include "cli/list_command.h"
#include "cli/rename_options.h"
#include "platform/program.h"
#include "playlist/row_paths.h"
#include "tools/rename/preview.h"
#include "tools/rename/rename_journal.h"
#include "tools/rename/rename_settings.h"

namespace qublet {
namespace {

// What a run did or would do to one file.
void PrintRow(CommandContext& context, const std::string& old_path, const std::string& new_path,
              const std::string& reason, bool json) {
  if (json) {
    Record record{{"old", old_path}, {"new", new_path}};
    if (!reason.empty()) record.push_back({"reason", reason});
    context.out << JsonRecord(record) << "\n";
  } else {
    context.out << PlainValue(old_path) << "\t" << PlainValue(new_path) << "\n";
  }
  if (!reason.empty()) Complain(context.err, old_path + ": " + reason, kCouldNot);
}

RenameResult RenameRow(const FileSystem& files, const PreviewRow& row) {
  if (Fails(row)) return {row.old_path, Outcome::GivenUp(row.reason)};
  if (row.new_path != row.old_path) return RenameTo(files, row.old_path, row.new_path);
  const bool missing = !files.Attributes(row.old_path) && !files.IdentityOfFile(row.old_path);
  return {row.old_path, missing ? Outcome::GivenUp("no such file or folder") : Outcome()};
}

bool DryRun(CommandContext& context, std::vector<PreviewRow>& rows, bool json) {
  WorkOutFates(context.files, rows, [] { return false; });
  bool all = true;
  for (const PreviewRow& row : rows) {
    PrintRow(context, row.old_path, Fails(row) ? row.old_path : row.new_path, row.reason, json);
    all = all && !Fails(row);
  }
  return all;
}

// What is planned is what is done, so that the journal knows after a kill what may have been.
bool RealRun(CommandContext& context, const std::vector<PreviewRow>& rows, bool json) {
  std::vector<PlannedRename> plan;
  for (const PreviewRow& row : rows) {
    if (row.new_path != row.old_path) plan.push_back({row.old_path, row.new_path});
  }
  RenameRunRecord record(context.files);
  if (!plan.empty()) {
    const Outcome kept = record.Begin(context.engine.services.clock, plan);
    if (!kept) Complain(context.err, "rename: this run can't be undone: " + kept.Reason(), kDone);
  }
  bool all = true;
  std::size_t place = 0;
  for (const PreviewRow& row : rows) {
    const RenameResult result = RenameRow(context.files, row);
    if (row.new_path != row.old_path) record.Note(place++, static_cast<bool>(result.outcome));
    PrintRow(context, row.old_path, result.path, result.outcome.Reason(), json);
    all = all && result.outcome;
  }
  return all;
}

int RenamePaths(CommandContext& context, const RenameOptions& options, const RenameConfig& config) {
  const bool all_there = AddPaths(context, options.paths);
  const Collection paths = RealPathsOf(context.engine.document.ListView1, WhichRows::kAll);
  Numbering numbering(context.files, paths.size(), options.reset_per_folder);
  std::vector<PreviewRow> rows = PlanNames(
      RenameRules(config), paths, numbering, [&](const std::string& path) { return TagTitle(context.files, path); },
      [] { return false; });
  const bool all = options.dry_run ? DryRun(context, rows, options.json) : RealRun(context, rows, options.json);
  return all_there && all ? kDone : kCouldNot;
}

int SaveRules(CommandContext& context, const RenameOptions& options, RenameConfig& config) {
  const Outcome saved = Attempt([&] {
    const std::string path = FileToWrite(context, options.subject, options.replace);
    WriteRenameSettings(context.files, path, config).OrThrow();
  });
  return saved ? kDone : Complain(context.err, options.subject + ": " + saved.Reason(), kCouldNot);
}

int PrintHistory(CommandContext& context) {
  for (const RenameRunFacts& run : RenameRuns(context.files))
    context.out << run.number << "\t" << run.time << "\t" << run.renamed << "\n";
  return kDone;
}

int UndoRun(CommandContext& context, std::optional<int> wanted) {
  RenameUndo undo;
  const Outcome outcome = Attempt([&] {
    if (!wanted) wanted = NewestRenameRun(context.files);
    if (!wanted) throw Failure("no run can be undone");
    undo = UndoRenameRun(context.files, *wanted);
  });
  if (!outcome) return Complain(context.err, "rename: " + outcome.Reason(), kCouldNot);
  for (const PlannedRename& rename : undo.restored) PrintRow(context, rename.old_path, rename.new_path, "", false);
  for (const RenameUndo::Left& left : undo.left) Complain(context.err, left.path + ": " + left.reason, kCouldNot);
  return undo.left.empty() ? kDone : kCouldNot;
}

int WithRules(CommandContext& context, const RenameOptions& options) {
  RenameConfig config;
  if (options.rules_file) {
    const Outcome read = Attempt([&] {
      ReadRenameSettings(context.files, PathFromArgument(context.files, *options.rules_file), config).OrThrow();
    });
    if (!read) return Complain(context.err, *options.rules_file + ": " + read.Reason(), kCouldNot);
  }
  ApplyOptions(options, config);
  if (options.purpose == RenameOptions::Purpose::kSaveRules) return SaveRules(context, options, config);
  if (options.purpose == RenameOptions::Purpose::kRun) return RenamePaths(context, options, config);
  context.out << PlainValue(
                     ApplyRenameRules(context.files, config, options.subject, options.index, options.total, false))
              << "\n";
  return kDone;
}

}  // namespace

int RenameCommand(CommandContext& context) {
  RenameOptions options;
  const Outcome taken = Attempt([&] { options = TakeRenameOptions(context); });
  if (!taken) return Complain(context.err, "rename: " + taken.Reason(), kWrongUse);
  if (options.purpose == RenameOptions::Purpose::kHistory) return PrintHistory(context);
  if (options.purpose == RenameOptions::Purpose::kUndo) return UndoRun(context, options.undone_run);
  return WithRules(context, options);
}

}  // namespace qublet

#include "cli/restore_command.h"

#include <ostream>

#include "cli/json_text.h"
#include "cli/list_command.h"
#include "cli/saved_playlist.h"
#include "tools/purge/missing_items.h"
#include "tools/purge/restoration.h"

namespace qublet {
namespace {

struct RestoreOptions {
  Arguments folders;
  bool use_folders = false;
  std::optional<SavedPlaylist> save;
};

RestoreOptions TakeRestoreOptions(CommandContext& context) {
  Arguments& arguments = context.arguments;
  RestoreOptions options;
  while (const std::optional<Arguments> folder = TakeValues(arguments, "--in", 1))
    options.folders.push_back(folder->front());
  options.save = TakeSavedPlaylist(arguments);
  options.use_folders = TakeOption(arguments, "--use-folders");
  const std::string unknown = UnknownOption(context);
  if (!unknown.empty()) throw Failure("unknown option " + unknown);
  if (arguments.empty()) throw Failure("a path is wanted");
  return options;
}

// The folders in drive form, or all drives. Throws Failure.
Collection RootsOf(const CommandContext& context, const Arguments& folders) {
  Collection roots;
  for (const std::string& folder : folders) {
    const Outcome found = Attempt([&] { roots.push_back(FolderFromArgument(context, folder)); });
    if (!found) throw Failure(folder + ": " + found.Reason());
  }
  if (!roots.empty()) return roots;
  for (char letter = 'a'; letter <= 'z'; ++letter) roots.push_back(std::string(1, letter) + ":\\");
  return roots;
}

// Gives what the search didn't get at.
WalkGaps Restore(Engine& engine, const MissingItems& missing, const Collection& roots, bool use_folders) {
  Restoration restoration(engine, missing.MissingPaths, use_folders);
  for (const std::string& root : roots) restoration.SearchDrive(root);
  for (int n = 1; n <= restoration.FolderCount(); ++n) {
    const Restoration::Step step = restoration.ShowMissingFolder(n);
    if (!step.FoundPaths.empty()) restoration.ApplyFoundFolder(n, {{step.FoundPaths.front(), true, false}});
  }
  return restoration.Gaps();
}

void PrintRestored(std::ostream& out, const RowStore& rows, const MissingItems& missing) {
  auto old_path = missing.MissingPaths.begin();
  for (const int row : missing.MissingRows) {
    const std::string path = rows.At(row).FullPath();
    out << PlainValue(*old_path) << "\t" << (path == *old_path ? "" : PlainValue(path)) << "\n";
    ++old_path;
  }
}

}  // namespace

int RestoreCommand(CommandContext& context) {
  RestoreOptions options;
  const Outcome taken = Attempt([&] { options = TakeRestoreOptions(context); });
  if (!taken) return Complain(context.err, "restore: " + taken.Reason(), kWrongUse);
  const int can_save = options.save ? options.save->Check(context) : kDone;
  if (can_save != kDone) return can_save;
  Collection roots;
  const Outcome rooted = Attempt([&] { roots = RootsOf(context, options.folders); });
  if (!rooted) return Complain(context.err, rooted.Reason(), kCouldNot);
  const bool all_there = AddPaths(context, context.arguments);
  if (options.save && !all_there) return kCouldNot;

  const RowStore& rows = context.engine.document.ListView1;
  const MissingItems missing = FindMissingItems(rows, context.files, [] {});
  const std::string gaps = GapsText(Restore(context.engine, missing, roots, options.use_folders));
  // Drives that aren't there are searched too, and of others some folders are always shut.
  if (!options.folders.empty() && !gaps.empty()) {
    Complain(context.err, "restore: " + gaps, kCouldNot);
    context.incomplete = true;
  }
  PrintRestored(context.out, rows, missing);
  if (options.save) return options.save->Save(context);
  return all_there ? kDone : kCouldNot;
}

}  // namespace qublet

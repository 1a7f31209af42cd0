#include "cli/purge_command.h"

#include <algorithm>
#include <array>
#include <ostream>
#include <utility>

#include "cli/json_text.h"
#include "cli/list_command.h"
#include "cli/saved_playlist.h"
#include "tools/purge/duplicates.h"
#include "tools/purge/missing_items.h"

namespace qublet {
namespace {

struct PurgeOptions {
  bool missing = false;
  DuplicateKey by = DuplicateKey::kPath;
  bool fold_case = false;
  bool all = false;
  std::optional<SavedPlaylist> save;
};

DuplicateKey KeyNamed(const std::string& name) {
  constexpr std::array<std::pair<const char*, DuplicateKey>, 3> kKeys{
      {{"name", DuplicateKey::kName}, {"folder", DuplicateKey::kFolder}, {"path", DuplicateKey::kPath}}};
  const auto* const key = std::ranges::find_if(kKeys, [&](const auto& row) { return name == row.first; });
  if (key == kKeys.end()) throw Failure("--by wants name, folder or path, not " + name);
  return key->second;
}

PurgeOptions TakePurgeOptions(CommandContext& context) {
  Arguments& arguments = context.arguments;
  PurgeOptions options;
  options.save = TakeSavedPlaylist(arguments);
  const std::optional<std::string> by = TakeValue(arguments, "--by");
  if (by) options.by = KeyNamed(*by);
  options.fold_case = TakeOption(arguments, "--fold-case");
  options.all = TakeOption(arguments, "--all");
  options.missing = TakeOption(arguments, "--missing");
  const bool duplicates = TakeOption(arguments, "--duplicates");
  const std::string unknown = UnknownOption(context);
  if (!unknown.empty()) throw Failure("unknown option " + unknown);
  if (duplicates == options.missing) throw Failure("one of --duplicates and --missing is wanted");
  if (options.missing && (by || options.fold_case || options.all)) throw Failure("these options don't go together");
  if (arguments.empty()) throw Failure("a path is wanted");
  return options;
}

std::vector<int> FindMissing(CommandContext& context, const RowStore& rows) {
  const auto alive = [] {};
  MissingItems missing = FindMissingItems(rows, context.files, alive);
  const std::string absent = AbsentPlacesOf(missing.MissingPaths, context.files, alive);
  if (!absent.empty()) context.err << absent << "\n";
  return std::move(missing.MissingRows);
}

}  // namespace

int PurgeCommand(CommandContext& context) {
  PurgeOptions options;
  const Outcome taken = Attempt([&] { options = TakePurgeOptions(context); });
  if (!taken) return Complain(context.err, "purge: " + taken.Reason(), kWrongUse);
  const int can_save = options.save ? options.save->Check(context) : kDone;
  if (can_save != kDone) return can_save;
  const bool all_there = AddPaths(context, context.arguments);
  if (options.save && !all_there) return kCouldNot;

  RowStore& rows = context.engine.document.ListView1;
  const std::vector<int> found =
      options.missing ? FindMissing(context, rows)
                      : FindDuplicates(BuildDuplicateKeys(rows, options.by, options.fold_case), options.all);
  if (options.save) {
    RemoveRows(rows, found);
    return options.save->Save(context);
  }
  for (const int row : found) context.out << row << "\t" << PlainValue(rows.At(row).FullPath()) << "\n";
  return all_there ? kDone : kCouldNot;
}

}  // namespace qublet

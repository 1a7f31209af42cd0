#include "cli/save_command.h"

#include "cli/list_command.h"
#include "cli/saved_playlist.h"

namespace qublet {

int SaveCommand(CommandContext& context) {
  Arguments& arguments = context.arguments;
  const bool relative = TakeOption(arguments, "--relative");
  const bool replace = TakeOption(arguments, "--replace");
  const std::string unknown = UnknownOption(context);
  if (!unknown.empty()) return Complain(context.err, "save: unknown option " + unknown, kWrongUse);
  if (arguments.size() < 2) return Complain(context.err, "save: a playlist and a path are wanted", kWrongUse);

  std::optional<SavedPlaylist> playlist;
  const Outcome fits = Attempt([&] { playlist.emplace(arguments[0], relative, replace); });
  if (!fits) return Complain(context.err, "save: " + fits.Reason(), kWrongUse);
  if (const int code = playlist->Check(context); code != kDone) return code;
  if (!AddPaths(context, {arguments.begin() + 1, arguments.end()})) return kCouldNot;
  return playlist->Save(context);
}

}  // namespace qublet

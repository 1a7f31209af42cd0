#include "cli/save_command.h"

#include "cli/list_command.h"
#include "cli/saved_playlist.h"
#include "platform/program.h"
#include "playlist/m3u_lines.h"

namespace qublet {
namespace {

// Playlists may name files that no list here takes: they would be gone from a playlist that is saved over.
void TellWhatIsLeftOut(const CommandContext& context, const std::string& path) {
  const std::size_t count = CountOtherLines(context.files, PathFromArgument(context.files, path));
  if (count == 0) return;
  const std::string what =
      count == 1 ? "1 line of another type is" : std::to_string(count) + " lines of other types are";
  Complain(context.err, path + ": " + what + " left out", kDone);
}

}  // namespace

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
  const Arguments paths(arguments.begin() + 1, arguments.end());
  for (const std::string& path : paths) ResumeNext([&] { TellWhatIsLeftOut(context, path); });
  if (!AddPaths(context, paths)) return kCouldNot;
  return playlist->Save(context);
}

}  // namespace qublet

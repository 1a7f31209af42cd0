#include "cli/save_command.h"

#include "cli/list_command.h"
#include "platform/program.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"

namespace qublet {

int SaveCommand(CommandContext& context) {
  Arguments& arguments = context.arguments;
  const bool relative = TakeOption(arguments, "--relative");
  const bool replace = TakeOption(arguments, "--replace");
  const std::string unknown = UnknownOption(context);
  if (!unknown.empty()) return Complain(context.err, "save: unknown option " + unknown, kWrongUse);
  if (arguments.size() < 2) return Complain(context.err, "save: a playlist and a path are wanted", kWrongUse);
  const std::string extension = LowerCase(GetExtension(GetFileName(arguments[0])));
  if (extension != ".m3u" && extension != ".m3u8") {
    return Complain(context.err, "save: the playlist's name must end in .m3u or .m3u8", kWrongUse);
  }

  std::string target;
  const Outcome named = Attempt([&] { target = PathFromArgument(context.files, arguments[0]); });
  if (!named) return Complain(context.err, arguments[0] + ": " + named.Reason(), kCouldNot);
  PlaylistFiles& playlists = context.engine.playlist_files;
  if (!replace && playlists.CheckExists(target)) {
    return Complain(context.err, arguments[0] + " exists; --replace replaces it", kCouldNot);
  }
  if (!AddPaths(context, {arguments.begin() + 1, arguments.end()})) return kCouldNot;
  const auto form = relative ? PlaylistFiles::LineForm::kRelative : PlaylistFiles::LineForm::kFull;
  context.dialogs.agrees = replace;
  context.dialogs.silent = true;  // the reason says more
  const Outcome saved = playlists.SaveTo(target, form);
  return saved ? kDone : Complain(context.err, arguments[0] + ": " + saved.Reason(), kCouldNot);
}

}  // namespace qublet

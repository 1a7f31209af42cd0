#include "cli/saved_playlist.h"

#include <utility>

#include "platform/program.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"

namespace qublet {

SavedPlaylist::SavedPlaylist(std::string out, bool relative, bool replace)
    : out_(std::move(out)), relative_(relative), replace_(replace) {
  const std::string extension = LowerCase(GetExtension(GetFileName(out_)));
  if (extension != ".m3u" && extension != ".m3u8") throw Failure("the playlist's name must end in .m3u or .m3u8");
}

int SavedPlaylist::Check(CommandContext& context) {
  const Outcome named = Attempt([&] { target_ = PathFromArgument(context.files, out_); });
  if (!named) return Complain(context.err, out_ + ": " + named.Reason(), kCouldNot);
  if (!replace_ && context.engine.playlist_files.CheckExists(target_))
    return Complain(context.err, out_ + " exists; --replace replaces it", kCouldNot);
  return kDone;
}

int SavedPlaylist::Save(CommandContext& context) const {
  const auto form = relative_ ? PlaylistFiles::LineForm::kRelative : PlaylistFiles::LineForm::kFull;
  context.dialogs.agrees = replace_;
  context.dialogs.silent = true;  // the reason says more
  PlaylistFiles& playlist_files = context.engine.playlist_files;
  const Outcome saved = playlist_files.SaveTo(target_, form);
  if (!saved) return Complain(context.err, out_ + ": " + saved.Reason(), kCouldNot);
  if (const int full = playlist_files.LeftAbsolute(); full > 0)
    Complain(context.err, out_ + ": " + FullPathsText(full), kDone);
  return kDone;
}

std::optional<SavedPlaylist> TakeSavedPlaylist(Arguments& arguments) {
  const std::optional<std::string> out = TakeValue(arguments, "--save");
  const bool relative = TakeOption(arguments, "--relative");
  const bool replace = TakeOption(arguments, "--replace");
  if (out) return SavedPlaylist(*out, relative, replace);
  if (relative || replace) throw Failure("--relative and --replace want --save");
  return std::nullopt;
}

}  // namespace qublet

#include "cli/save_command.h"

#include "cli/list_command.h"
#include "playlist/m3u_lines.h"
#include "playlist/paths/file_details.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

bool IsPlaylistName(const std::string& path) {
  const std::string extension = LowerCase(GetExtension(GetFileName(path)));
  return extension == ".m3u" || extension == ".m3u8";
}

}  // namespace

int SaveCommand(CommandContext& context) {
  Arguments& arguments = context.arguments;
  const bool relative = TakeOption(arguments, "--relative");
  const bool replace = TakeOption(arguments, "--replace");
  const std::string unknown = UnknownOption(arguments);
  if (!unknown.empty()) return Complain(context.err, "save: unknown option " + unknown, kWrongUse);
  if (arguments.size() < 2) return Complain(context.err, "save: a playlist and a path are wanted", kWrongUse);
  if (!IsPlaylistName(arguments[0])) {
    return Complain(context.err, "save: the playlist's name must end in .m3u or .m3u8", kWrongUse);
  }

  std::string target;
  FileDetails details;
  const Outcome named = Attempt([&] { target = PathFromArgument(context.files, arguments[0]); });
  if (!named) return Complain(context.err, arguments[0] + ": " + named.Reason(), kCouldNot);
  GetFileDetails(context.files, target, details);
  if (details.Exists && !replace) {
    return Complain(context.err, arguments[0] + " exists; --replace replaces it", kCouldNot);
  }

  Document document;
  if (!AddPaths(document, context, {arguments.begin() + 1, arguments.end()})) return kCouldNot;
  Collection lines;
  for (int i = 1; i <= document.ListView1.Count(); ++i) lines.push_back(document.ListView1.At(i).FullPath());
  const Outcome written = WritePlaylistLines(context.files, details.Path, lines, relative);
  return written ? kDone : Complain(context.err, arguments[0] + ": " + written.Reason(), kCouldNot);
}

}  // namespace qublet

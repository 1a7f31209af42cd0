#include "cli/properties_command.h"

#include <ostream>

#include "cli/list_command.h"
#include "platform/program.h"
#include "playlist/m3u_lines.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"
#include "playlist/statistics.h"

namespace qublet {

int PropertiesCommand(CommandContext& context) {
  if (!OnlyPaths(context, "properties")) return kWrongUse;
  Engine& engine = context.engine;
  Document& document = engine.document;
  if (context.arguments.size() == 1 && IsPlaylistExtension(LowerCase(GetExtension(context.arguments[0]))))
    ResumeNext([&] { document.CurrentPlaylist = PathFromArgument(context.files, context.arguments[0]); });
  const bool all_there = AddPaths(context, context.arguments);
  if (document.ListView1.Count() == 0) return kCouldNot;
  const Statistics statistics =
      GatherStatistics(document, context.files, engine.services.associations, engine.program_folder);
  for (const StatisticsLine& line : StatisticsLines(statistics, engine.thousands_separator)) {
    context.out << line.caption << "\t" << line.text << "\n";
  }
  const std::string note = StatisticsNote(statistics);
  if (!note.empty()) context.out << note << "\n";
  return all_there ? kDone : kCouldNot;
}

}  // namespace qublet

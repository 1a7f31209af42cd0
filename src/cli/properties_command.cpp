#include "cli/properties_command.h"

#include <ostream>

#include "cli/list_command.h"
#include "platform/program.h"
#include "playlist/m3u_lines.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"
#include "playlist/statistics.h"

namespace qublet {

int PrintProperties(CommandContext& context, const Associations& associations, const std::string& program_folder) {
  if (!OnlyPaths(context, "properties")) return kWrongUse;
  Document document;
  if (context.arguments.size() == 1 && IsPlaylistExtension(LowerCase(GetExtension(context.arguments[0]))))
    ResumeNext([&] { document.CurrentPlaylist = PathFromArgument(context.files, context.arguments[0]); });
  const bool all_there = AddPaths(document, context, context.arguments);
  if (document.ListView1.Count() == 0) return kCouldNot;
  Feedback feedback;
  MainView view;
  Items items(document, context.files, feedback, view, ",");
  const Statistics statistics = GatherStatistics(document, items, context.files, associations, program_folder);
  for (const StatisticsLine& line : StatisticsLines(statistics, ",")) {
    context.out << line.caption << "\t" << line.text << "\n";
  }
  const std::string note = StatisticsNote(statistics);
  if (!note.empty()) context.out << note << "\n";
  return all_there ? kDone : kCouldNot;
}

int PropertiesCommand(CommandContext& context) {
  return PrintProperties(context, *OpenAssociations(context.files), OwnFolder(context.files));
}

}  // namespace qublet

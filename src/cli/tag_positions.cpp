#include "cli/tag_positions.h"

#include <ostream>

#include "cli/tag_report.h"
#include "media/tpsi.h"
#include "platform/program.h"
#include "player/position_jump.h"

namespace qublet {
namespace {

Collection RecordsOf(const CommandContext& context, const std::string& path) {
  TagObject tag(context.files);
  tag.ReadTags(path, false);
  return TpsiRecords(tag.Comments().All());
}

// Throws Failure.
void GoTo(CommandContext& context, const std::string& path, int number) {
  const Collection records = RecordsOf(context, path);
  if (static_cast<std::size_t>(number) > records.size()) throw Failure("has no position " + std::to_string(number));
  Engine& engine = context.engine;
  if (engine.player.PlayerProgram().path.empty()) throw Failure("no program opens playlists here");
  engine.items.AddFile(path, 0, 0);
  engine.document.ListView1.SetSelected(1, true);
  engine.player.FindPlayerWindow();
  Background here;
  const std::int32_t milliseconds = TpsiMilliseconds(records[static_cast<std::size_t>(number) - 1]);
  if (PlaySelectedFrom(engine.player, engine.preview, engine.services.players, milliseconds, here).empty())
    throw Failure("no player came up");
}

}  // namespace

int PrintPositions(CommandContext& context, bool json) {
  int code = kDone;
  const bool several = context.arguments.size() > 1;
  for (const std::string& argument : context.arguments) {
    const Outcome printed = Attempt([&] {
      const std::string path = PathFromArgument(context.files, argument);
      const Collection records = RecordsOf(context, path);
      if (several && !json) context.out << "File\t" << path << "\n";
      PrintTimes(path, records, json, context.out);
    });
    if (!printed) code = Complain(context.err, argument + ": " + printed.Reason(), kCouldNot);
  }
  return code;
}

int GoToPosition(CommandContext& context, int number) {
  const std::string& argument = context.arguments.front();
  const Outcome gone = Attempt([&] { GoTo(context, PathFromArgument(context.files, argument), number); });
  return gone ? kDone : Complain(context.err, argument + ": " + gone.Reason(), kCouldNot);
}

}  // namespace qublet

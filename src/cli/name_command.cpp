#include "cli/name_command.h"

#include <ostream>

#include "cli/json_text.h"
#include "playlist/paths/playlist_name.h"

namespace qublet {

int NameCommand(CommandContext& context) {
  if (context.arguments.size() != 2) return Complain(context.err, "name: a format and a path are wanted", kWrongUse);
  std::string format = context.arguments[0];
  const std::string name = MakePlaylistName(format, context.arguments[1], SystemClock());
  if (name.empty()) return Complain(context.err, "The resultant File name will not be valid.", kCouldNot);
  context.out << PlainValue(name) << "\n";
  return kDone;
}

}  // namespace qublet

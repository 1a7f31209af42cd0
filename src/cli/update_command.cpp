#include "cli/update_command.h"

#include <ostream>

#include "playlist/paths/text.h"
#include "settings/update/http_fetch.h"
#include "settings/update/update_check.h"

namespace qublet {

int UpdateCommand(CommandContext& context) {
  if (!context.arguments.empty()) return Complain(context.err, "update: it takes no arguments", kWrongUse);
  return AskForUpdate(context, kUpdatePatience);
}

int AskForUpdate(CommandContext& context, std::chrono::milliseconds patience) {
  std::future<std::string> response = BeginFetch(context.engine.services.sockets, VersionFileAddress());
  const bool there = response.wait_for(patience) == std::future_status::ready;
  const UpdateAnswer answer = AnswerOf(there ? response.get() : "");
  const std::string message = ReplaceAll(UpdateMessage(answer), "\r\n", "\n");
  if (answer == UpdateAnswer::kFailed) return Complain(context.err, message, kCouldNot);
  context.out << message << "\n";
  return kDone;
}

}  // namespace qublet

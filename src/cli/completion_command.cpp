#include "cli/completion_command.h"

#include "cli/completion_scripts.h"

namespace qublet {

int CompletionCommand(CommandContext& context) {
  const Arguments& words = context.arguments;
  if (words.size() == 1 && words[0] == "bash") {
    PrintBashCompletion(context.out);
  } else if (words.size() == 1 && words[0] == "zsh") {
    PrintZshCompletion(context.out);
  } else if (words.size() == 1 && words[0] == "fish") {
    PrintFishCompletion(context.out);
  } else {
    return Complain(context.err, "completion: bash, zsh or fish is wanted", kWrongUse);
  }
  return kDone;
}

}  // namespace qublet

#include "cli/printed_dialogs.h"

#include "cli/arguments.h"
#include "playlist/paths/text.h"

namespace qublet {

MessageAnswer PrintedDialogs::ShowMessage(const std::string& text, MessageIcon /*icon*/, MessageButtons buttons) {
  if (buttons != MessageButtons::kOk) return agrees ? MessageAnswer::kYes : MessageAnswer::kCancel;
  said_something = true;
  if (!silent) Complain(err_, ReplaceAll(text, "\r", "\n"), kCouldNot);
  return MessageAnswer::kOk;
}

}  // namespace qublet

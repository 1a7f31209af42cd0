#include "cli/printed_dialogs.h"

#include <ostream>

#include "playlist/paths/text.h"

namespace qublet {

MessageAnswer PrintedDialogs::ShowMessage(const std::string& text, MessageIcon /*icon*/, MessageButtons buttons) {
  if (buttons != MessageButtons::kOk) return agrees ? MessageAnswer::kYes : MessageAnswer::kCancel;
  said_something = true;
  if (!silent) err_ << "qublet: " << ReplaceAll(text, "\r", "\n") << "\n";
  return MessageAnswer::kOk;
}

}  // namespace qublet

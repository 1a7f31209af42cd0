#pragma once

#include <iosfwd>

#include "platform/dialogs.h"

namespace qublet {

// Dialogs without a window: messages are printed where errors go, questions are answered without asking, nothing is
// chosen.
class PrintedDialogs : public Dialogs {
 public:
  explicit PrintedDialogs(std::ostream& err) : err_(err) {}

  MessageAnswer ShowMessage(const std::string& text, MessageIcon icon, MessageButtons buttons) override;
  std::optional<std::string> ShowOpen(const FileRequest& /*request*/) override { return std::nullopt; }
  std::optional<std::string> ShowSave(const FileRequest& /*request*/) override { return std::nullopt; }
  std::optional<std::string> AskText(const std::string& /*prompt*/, const std::string& /*title*/) override {
    return std::nullopt;
  }
  std::optional<std::string> BrowseForFolder(const std::string& /*title*/, const std::string& /*start_folder*/,
                                             bool /*files_too*/) override {
    return std::nullopt;
  }

  bool agrees = false;  // questions are answered with Yes, else with Cancel
  bool silent = false;  // messages are left out
  bool said_something = false;

 private:
  std::ostream& err_;
};

}  // namespace qublet

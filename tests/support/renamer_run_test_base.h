#pragma once

#include <string>
#include <vector>

#include "support/rename_test_base.h"

namespace qublet {

// Runs over selected songs, and what is told meanwhile.
class RenamerRunTestBase : public RenameTestBase {
 protected:
  void Run() {
    fakes_.dialogs.answers.push_back(MessageAnswer::kYes);
    RunAsking();
  }
  void RunAsking() {
    Renamer::Watch watch;
    watch.report = [this](const std::string& text) {
      reports_.push_back(text + (renamer_.view.process ? " +" : ""));
    };
    watch.progress = [this](int value, int maximum) {
      progress_.push_back(std::to_string(value) + "/" + std::to_string(maximum));
    };
    renamer_.Activate();
    renamer_.CmdProcess_Click(watch);
  }
  void Undo() { renamer_.cmdUndo_Click({}); }
  // Rules that do nothing but what the test sets.
  void Quiet() {
    renamer_.Option_Click(&RenameConfig::Capitalise, false);
    renamer_.RemoveRule_Click(0);
  }
  void Number() {
    Quiet();
    renamer_.Option_Click(&RenameConfig::Increment, true);
  }
  std::vector<ScriptedDialogs::Message>& Asked() { return fakes_.dialogs.messages; }

  Renamer renamer_{engine_};
  std::vector<std::string> reports_;
  std::vector<std::string> progress_;
};

}  // namespace qublet

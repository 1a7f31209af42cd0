#pragma once

#include <functional>
#include <optional>
#include <string>

#include "engine/engine.h"
#include "generators/report/report_engine.h"
#include "generators/report/report_settings.h"

namespace qublet {

// What the wizard shows besides the settings on its controls.
struct ReportView {
  int frame = 0;
  bool back = false;
  bool next = true;
  bool closes_next = false;  // the keyboard belongs to the button that closes
  std::string lblReport;
};

// The report wizard without its window: the way through its steps, files of settings, and the run over the whole
// list. The settings stand on the controls and come with each call that needs them.
class ReportWizard {
 public:
  // The frames by their numbers.
  enum Frame { kOptionsFrame, kColumnsFrame, kHtmlFrame, kTextFrame, kRunFrame };

  // What is to be painted at once.
  struct Watch {
    std::function<void()> view = [] {};
    ReportProgress progress = [](int, int) {};
  };

  explicit ReportWizard(Engine& engine);

  ReportView view;

  // The window opens: takes the name of the list's common folder.
  void Load();
  const std::string& FolderTitle() const { return FolderTitle_; }
  // The window comes to the front.
  void Activate();

  void CmdNext_Click(const ReportSettings& form, const Watch& watch);
  void CmdBack_Click(const ReportSettings& form);
  // What the controls are to show; nothing when they stay as they are.
  std::optional<ReportSettings> LoadCurrent_Click();
  void SaveCurrent_Click(const ReportSettings& form);

 private:
  void Restart();
  void Show(int frame);
  void Report(const Watch& watch, const std::string& text);
  void Tell(const std::string& text, MessageIcon icon);
  void RunReport(ReportSettings settings, const Watch& watch);
  void OfferToKeep(const ReportSettings& settings, const std::string& temporary, const Collection& files);
  void KeepAs(const std::string& name, const std::string& temporary);

  Engine& engine_;
  std::string FolderTitle_;
  int Step = 0;
};

}  // namespace qublet

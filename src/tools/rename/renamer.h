#pragma once

#include <functional>
#include <string>
#include <unordered_set>
#include <vector>

#include "engine/engine.h"
#include "tools/rename/rename_config.h"

namespace qublet {

struct RuleRow {
  std::string text;
  bool ticked = false;
  bool operator==(const RuleRow&) const = default;
};

// All that the rename window shows, but for what its preview works out.
struct RenameView {
  bool process = false;  // CmdProcess and cmdUndo can be used
  bool undo = false;
  bool warning = false;  // the boxes "Warning", "AllowOnce" and "Delay"
  bool allow_once = true;
  bool delay = true;
  bool timer = false;  // Timer1 runs

  RenameConfig options;           // the option controls; the rule slots in it mean nothing
  std::vector<RuleRow> RuleList;  // row i stands for slot i
  std::vector<std::string> TestList;
  std::string Test1 = kSampleName;
  std::string Test2;
  std::string report;

  static constexpr const char* kSampleName = "SAmPle File_naMe.MP3";
};

// The rename window without its window: the rules, the run over the selected rows, the guard against a second run,
// and the undo of the last one. What is on the screen and the record that runs work by differ after a failed load.
class Renamer {
 public:
  // What is to be painted at once.
  struct Watch {
    std::function<void(const std::string& report)> report = [](const std::string&) {};
    std::function<void(int value, int maximum)> progress = [](int, int) {};
  };

  explicit Renamer(Engine& engine);

  RenameView view;
  const RenameConfig& Config() const { return config_; }
  int TimerInterval() const { return view.delay ? 4000 : 10; }  // milliseconds

  // The window comes to the front.
  void Activate();
  void CmdProcess_Click(const Watch& watch);
  void cmdUndo_Click(const Watch& watch);
  void CmdClose_Click();
  void Timer1_Timer();
  void AllowOnce_Click(bool ticked);
  void Delay_Click(bool ticked) { view.delay = ticked; }
  void Warning_Click(bool ticked) { view.warning = ticked; }

  void AddRule_Click(const std::string& ToReplace, const std::string& ReplaceTo);
  // `row` counts from 0; none is highlighted below that.
  void RemoveRule_Click(int row);
  void RuleList_ItemCheck(int row, bool ticked);
  void Option_Click(bool RenameConfig::*field, bool value);
  void Truncval_Click(int characters);
  void RulesSave_Click();
  void RulesLoad_Click();
  void RulesDef_Click();
  void RenTest_Click(const std::string& Test1);
  void RenReset_Click();
  void ShowSummary();

 private:
  struct Count {
    int done = 0;
    int tried = 0;
  };
  void Report(const Watch& watch, const std::string& text);
  MessageAnswer Ask(const std::string& text, MessageIcon icon, MessageButtons buttons) const;
  bool AskForRun();
  bool AskAboutMissing(const Watch& watch);
  bool AskAboutFolders(const Watch& watch, bool& ResetPerFolder);
  void TakeSelection();
  Count RenameSelection(const Watch& watch, bool ResetPerFolder);
  Count RestoreNames(const Watch& watch);
  void ShowRenameConfig();
  void Tell(const char* text, MessageIcon icon = MessageIcon::kInformation) const;

  Engine& engine_;
  RenameConfig config_;
  Collection UndoOldPaths;
  Collection UndoNewPaths;
  std::unordered_set<std::string> not_files_;  // of the selected paths: missing, or folders
};

}  // namespace qublet

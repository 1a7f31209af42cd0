#pragma once

#include <functional>
#include <string>
#include <vector>

#include "engine/engine.h"
#include "generators/autocreate/autocreate_run.h"

namespace qublet {

struct TickedFolder {
  std::string path;  // "\" at its end
  bool ticked = true;
};

// What the wizard shows. Ticks and the format are what the user makes of them.
struct AutoCreateView {
  int frame = 0;
  bool back = false;
  bool next = true;
  bool closes_next = false;  // the keyboard belongs to the button that closes
  bool modes = true;         // the four options can be chosen
  AutoCreateMode mode = AutoCreateMode::kBaseFolderOnly;
  std::string Label1;
  std::string Label5;
  std::vector<TickedFolder> lstPaths;
  std::string Parameters = kDefaultNamingFormat;
  std::string TestOutput;
  Collection lstReport;
  bool undo = false;
  int progress = 0;
  int maximum = 1;
};

// The wizard that writes a playlist for each folder of the list, without its window.
class AutoCreator {
 public:
  // The frames by their numbers.
  enum Frame { kModeFrame, kFoldersFrame, kFormatFrame, kRunFrame };

  // Called whenever something is to be painted at once.
  using Watch = std::function<void()>;

  // Begins with the list as it is.
  explicit AutoCreator(Engine& engine);

  AutoCreateView view;

  // Where kMyFolderOnly puts the playlists, "\" at its end; "" when none was chosen.
  const std::string& MyFolder() const { return MyFolder_; }

  void CmdNext_Click(const Watch& watch);
  void CmdBack_Click();
  // For kMyFolderOnly asks for the folder; without one the mode is kBaseFolderOnly.
  void Mode_Click(AutoCreateMode mode);
  // Shows in the file manager what stands in that row, from 0.
  void lstPaths_DblClick(int row);
  // False when the format gave no name and was put back.
  bool CmdTest_Click();
  void cmdUndo_Click(const Watch& watch);

 private:
  void PrepareAutoCreate();
  void ShowFrame();
  void MyFolderOnly_Click();
  void Run(const Watch& watch);
  AutoCreateOrder Order() const;
  AutoCreateWatch Reporting(const Watch& watch);

  Engine& engine_;
  int Step = 0;
  Collection FileArray_;
  std::string FirstFolder_;
  std::string MyFolder_;
  Collection Written_;
};

}  // namespace qublet

#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "engine/engine.h"
#include "tools/purge/missing_items.h"
#include "tools/purge/restoration.h"

namespace qublet {

// What is done with the rows that are found; the numbers are those of the lists `DupAction` and `MissAction`.
enum class DuplicateAction { kSelectAll = 0, kRemoveAll = 1, kSelectButFirst = 2, kRemoveButFirst = 3 };
enum class MissingAction { kSelect = 0, kRemove = 1, kSearch = 2 };

struct FoundFolder {
  std::string folder;
  std::string held;  // how many of the missing files are there
  bool ticked = false;
};

// All that the purge window shows.
struct FilterView {
  bool EnbPurge = true;
  bool EnbDuplicate = false;
  bool searching = false;  // a pass works on rows that it has found
  bool stepping = false;   // the user is asked, old folder by old folder

  int DupBase = 2;
  int DupAction = 3;
  bool DupCase = false;
  int MissAction = 1;
  bool DontUsePath = true;

  std::string MissingPath;
  std::vector<FoundFolder> FoundPaths;
  int selected = -1;    // of them, from 0; none below that
  std::string similar;  // see Restoration::Step

  int progress = 0;
  int maximum = 1;
  std::string report;
  std::string absent_places;  // stays until the next pass

  // "Process".
  bool CanSearch() const { return (EnbPurge || EnbDuplicate) && !searching && !stepping; }
};

// The purge window without its window: duplicates and missing items, selected, removed, or, if they are missing,
// given other files step by step.
class Purger {
 public:
  struct Watch {
    std::function<void()> changed = [] {};  // `view` is to be painted at once
    std::function<void()> alive = [] {};    // called often in work that shows no progress
  };

  explicit Purger(Engine& engine);

  FilterView view;

  // The window comes to the front; a restoration ends.
  void Activate();
  // The window is closed; a restoration ends.
  void Close();

  void CmdSearch_Click(const Watch& watch);
  // The steps of a restoration.
  void NxtPath_Click();
  void SkipPath_Click();
  void AbortPath_Click();
  // Opens a suggested folder, counted from 0, in the file manager.
  void FoundPaths_DblClick(int row);

 private:
  void Report(const Watch& watch, const std::string& text);
  void ShowProgress(const Watch& watch, int value, int maximum);
  void ProcessDuplicates(const Watch& watch);
  void ProcessMissing(const Watch& watch);
  void SelectRows(const std::vector<int>& numbers);
  void SearchDrives(const Watch& watch, const Collection& MissingPaths, bool UseFolderInfo);
  void TakeStep();
  void ShowMissingFolder();
  void ApplyFoundFolder();
  void EndRestoration();

  Engine& engine_;
  std::optional<Restoration> restoration_;
  int RestoredCount = 0;
  int CurrentFolder = 0;
  int FolderCount = 1;
  bool SkipFolder = false;
};

}  // namespace qublet

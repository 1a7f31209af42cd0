#include "tools/purge/purger.h"

#include <utility>

#include "tools/purge/duplicates.h"

namespace qublet {
namespace {

std::string Counted(std::size_t count, const char* what) {
  return std::to_string(count) + " " + what;
}

}  // namespace

Purger::Purger(Engine& engine) : engine_(engine) {}

void Purger::Activate() {
  if (view.searching) return;  // an event among those that are let through meanwhile
  if (!view.stepping) RestoredCount = 0;
  EndRestoration();
  RestoredCount = 0;
  CurrentFolder = 0;
  FolderCount = 1;
  SkipFolder = false;
}

void Purger::Close() {
  EndRestoration();
  engine_.view.Refresh();
}

void Purger::Report(const Watch& watch, const std::string& text) {
  view.report = text;
  watch.changed();
}

void Purger::ShowProgress(const Watch& watch, int value, int maximum) {
  view.progress = value;
  view.maximum = maximum;
  watch.changed();
}

void Purger::CmdSearch_Click(const Watch& watch) {
  if (!view.CanSearch()) return;
  const WaitCursor wait(engine_.services.feedback);
  view.absent_places.clear();
  if (view.EnbDuplicate) ProcessDuplicates(watch);
  if (view.EnbPurge) ProcessMissing(watch);
  engine_.view.Refresh();
}

void Purger::ProcessDuplicates(const Watch& watch) {
  constexpr int kMaximum = 7;
  const auto action = static_cast<DuplicateAction>(view.DupAction);
  const bool includeFirst = action == DuplicateAction::kSelectAll || action == DuplicateAction::kRemoveAll;
  const bool removes = action == DuplicateAction::kRemoveAll || action == DuplicateAction::kRemoveButFirst;
  ShowProgress(watch, 1, kMaximum);
  Report(watch, "Checking for Duplicate Items...");
  const Collection DuplicateKeys =
      BuildDuplicateKeys(engine_.document.ListView1, static_cast<DuplicateKey>(view.DupBase), view.DupCase);
  ShowProgress(watch, 2, kMaximum);
  const std::vector<int> DuplicateRows = FindDuplicates(DuplicateKeys, includeFirst);
  ShowProgress(watch, 3, kMaximum);
  engine_.items.MEditSelNone_Click();
  ShowProgress(watch, 4, kMaximum);
  SelectRows(DuplicateRows);
  if (removes) engine_.list_commands.MEditRemove_Click();
  view.progress = 0;
  if (DuplicateRows.empty()) return Report(watch, "Done: No Duplicate Items were found.");
  Report(watch, (removes ? "Done: Removed " : "Done: Selected ") + Counted(DuplicateRows.size(), "Duplicate Items"));
}

// None is selected before. The last one is scrolled into view.
void Purger::SelectRows(const std::vector<int>& numbers) {
  RowStore& rows = engine_.document.ListView1;
  const RowStore::Bulk bulk(rows);
  for (const int number : numbers) rows.SetSelected(number, true);
  if (!numbers.empty()) rows.EnsureVisible(numbers.back());
}

void Purger::ProcessMissing(const Watch& watch) {
  const bool UseFolderInfo = !view.DontUsePath;
  Report(watch, "Destroying previous data...");
  restoration_.reset();
  Report(watch, "Searching Playlist for Missing Files...");
  const FileSystem& files = engine_.services.files;
  const MissingItems missing = FindMissingItems(engine_.document.ListView1, files, watch.alive);
  const std::size_t count = missing.MissingRows.size();
  if (count == 0) return Report(watch, "Done: No missing Items Found...");
  view.absent_places = AbsentPlacesOf(missing.MissingPaths, files, watch.alive);
  view.searching = true;
  watch.changed();
  engine_.items.MEditSelNone_Click();
  switch (static_cast<MissingAction>(view.MissAction)) {
    case MissingAction::kSelect:
      SelectRows(missing.MissingRows);
      view.report = "Done: " + Counted(count, "Items Selected");
      break;
    case MissingAction::kRemove:
      RemoveRows(engine_.document.ListView1, missing.MissingRows);
      engine_.document.PlaylistChanged = true;
      view.report = "Done: " + Counted(count, "Items Removed");
      break;
    default:
      SearchDrives(watch, missing.MissingPaths, UseFolderInfo);
  }
  view.searching = false;
  watch.changed();
}

void Purger::SearchDrives(const Watch& watch, const Collection& MissingPaths, bool UseFolderInfo) {
  Report(watch, "Searching for " + Counted(MissingPaths.size(), "Missing Items..."));
  restoration_.emplace(engine_, MissingPaths, UseFolderInfo);
  for (char letter = 'a'; letter <= 'z' && !engine_.services.feedback.Stopped(); ++letter) {
    const bool first_bar = letter <= 'h';
    ShowProgress(watch, letter - (first_bar ? 'a' : 'h'), first_bar ? 7 : 18);
    restoration_->SearchDrive(std::string(1, letter) + ":\\");
  }
  view.progress = 0;
  const std::size_t found = restoration_->FoundCount();
  if (found == 0) return Report(watch, "No Items were found to match...");
  Report(watch, Counted(found, "Items were returned by the Search..."));
  RestoredCount = 0;
  CurrentFolder = 0;
  FolderCount = 1;
  SkipFolder = false;
  TakeStep();
}

void Purger::NxtPath_Click() {
  if (!view.stepping) return;
  const WaitCursor wait(engine_.services.feedback);
  TakeStep();
}

void Purger::SkipPath_Click() {
  SkipFolder = true;
  NxtPath_Click();
}

void Purger::TakeStep() {
  if (!SkipFolder && CurrentFolder >= 1) ApplyFoundFolder();
  SkipFolder = false;
  if (CurrentFolder > FolderCount - 1) return EndRestoration();
  view.stepping = true;
  ++CurrentFolder;
  ShowMissingFolder();
}

void Purger::ShowMissingFolder() {
  Feedback& feedback = engine_.services.feedback;
  FolderCount = restoration_->FolderCount();
  Restoration::Step step = restoration_->ShowMissingFolder(CurrentFolder);
  view.MissingPath = std::move(step.MissingPath);
  view.similar = std::move(step.similar);
  view.FoundPaths.clear();
  for (const std::string& folder : step.FoundPaths) {
    feedback.ShowActivity(folder);
    view.FoundPaths.push_back({folder, restoration_->HeldOf(CurrentFolder, folder)});
  }
  feedback.ShowActivity("");
  view.selected = view.FoundPaths.empty() ? -1 : 0;
}

void Purger::ApplyFoundFolder() {
  std::vector<Restoration::Choice> choices;
  for (const FoundFolder& found : view.FoundPaths) {
    const bool selected = static_cast<int>(choices.size()) == view.selected;
    choices.push_back({found.folder, selected, found.ticked});
  }
  RestoredCount += restoration_->ApplyFoundFolder(CurrentFolder, choices);
  engine_.view.Refresh();
}

void Purger::EndRestoration() {
  restoration_.reset();
  view.stepping = false;
  view.MissingPath.clear();
  view.FoundPaths.clear();
  view.selected = -1;
  view.similar.clear();
  view.report = RestoredCount < 1 ? "Done: No items were restored..."
                                  : "Done: Restored " + Counted(static_cast<std::size_t>(RestoredCount), "Items...");
}

void Purger::AbortPath_Click() {
  if (view.stepping) EndRestoration();
}

void Purger::FoundPaths_DblClick(int row) {
  if (row < 0 || row >= static_cast<int>(view.FoundPaths.size())) return;
  engine_.services.shell.Explore(view.FoundPaths[static_cast<std::size_t>(row)].folder);
}

}  // namespace qublet

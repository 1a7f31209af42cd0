#include "tools/rename/renamer.h"

#include <algorithm>

#include "playlist/paths/existing_files.h"
#include "playlist/paths/path_text.h"
#include "playlist/row_paths.h"
#include "tools/rename/apply_rules.h"
#include "tools/rename/numbering.h"

namespace qublet {
namespace {

constexpr const char* kWarning =
    "Warning, you are about to RENAME ALL FILTERABLE SELECTED mp3 files, If two filenames match after filtering only "
    "the first in the list will be renamed. It is also recommended that you remove duplicate items and evaluate the "
    "result of filename length limiting before processing. Do you want to continue the process?";
constexpr const char* kMissing =
    "Not all of the items you selected are pointed to correctly. Do you want to proceed? [This could cause "
    "inconsistency in the resultant filenames!]";
constexpr const char* kFolders =
    "You have chosen to add incremental numbers to each item to be renamed, yet the items selected exist in "
    "different "
    "folders! Do you want to 'Reset' the count for each individual folder? Clicking 'No' will simply increment the "
    "number for every item renamed.";

std::string DoneLine(int done, int tried, const char* what) {
  return "Done: " + std::to_string(done) + "/" + std::to_string(tried) + " Items were " + what;
}

}  // namespace

Renamer::Renamer(Engine& engine) : engine_(engine) {
  ShowRenameConfig();
}

void Renamer::Activate() {
  view.report = "Twiddling Thumbs...";
  TakeSelection();
  const std::size_t count = engine_.document.FileArray.size();
  view.process = count > 0;
  view.report = count > 0 ? std::to_string(count) + " Items Selected." : "Nothing Selected...";
}

void Renamer::TakeSelection() {
  engine_.document.FileArray = RealPathsOf(engine_.document.ListView1, WhichRows::kSelected);
}

void Renamer::Report(const Watch& watch, const std::string& text) {
  view.report = text;
  watch.report(text);
}

MessageAnswer Renamer::Ask(const std::string& text, MessageIcon icon, MessageButtons buttons) const {
  return engine_.services.dialogs.ShowMessage(text, icon, buttons);
}

bool Renamer::AskForRun() {
  if (!view.warning && Ask(kWarning, MessageIcon::kExclamation, MessageButtons::kYesNo) != MessageAnswer::kYes)
    return false;
  view.warning = true;
  return true;
}

bool Renamer::AskAboutMissing(const Watch& watch) {
  const FileSystem& files = engine_.services.files;
  const ExistingFiles existing(files);
  bool all_there = true;
  not_files_.clear();
  for (const std::string& path : engine_.document.FileArray) {
    const std::optional<unsigned> attributes = files.Attributes(path);
    if (!attributes || (*attributes & kFolder) != 0) not_files_.insert(path);
    all_there = all_there && (attributes || existing.Has(path));
  }
  if (all_there || Ask(kMissing, MessageIcon::kQuestion, MessageButtons::kYesNoCancel) == MessageAnswer::kYes)
    return true;
  Report(watch, "Use 'Remove Non-Existent Items' to Purge Missing Files...");
  return false;
}

bool Renamer::AskAboutFolders(const Watch& watch, bool& ResetPerFolder) {
  if (!config_.Increment || !InSeveralFolders(engine_.document.FileArray)) return true;
  const MessageAnswer answer = Ask(kFolders, MessageIcon::kQuestion, MessageButtons::kYesNoCancel);
  ResetPerFolder = answer == MessageAnswer::kYes;
  if (answer != MessageAnswer::kCancel) return true;
  Report(watch, "Select ALL files from a single folder to be sure...");
  return false;
}

void Renamer::CmdProcess_Click(const Watch& watch) {
  if (!AskForRun()) return;
  Report(watch, "Building List of Selected Items...");
  TakeSelection();
  if (engine_.document.FileArray.empty()) return Report(watch, "Nothing Selected...");
  Report(watch, "Searching for Missing Items...");
  if (!AskAboutMissing(watch)) return;
  Report(watch, "Looking for Multiple Folders...");
  bool ResetPerFolder = true;
  if (!AskAboutFolders(watch, ResetPerFolder)) return;

  const WaitCursor wait(engine_.services.feedback);
  view.process = false;
  Report(watch, "Destroying Old Undo File Items...");
  UndoOldPaths.clear();
  UndoNewPaths.clear();
  Report(watch, "Renaming Items...");
  const Count count = RenameSelection(watch, ResetPerFolder);
  if (!view.allow_once) view.timer = true;
  watch.progress(0, 1);
  view.undo = count.done > 0;
  if (count.done > 0) engine_.document.PlaylistChanged = true;
  if (count.done == 0) view.process = true;
  Report(watch, DoneLine(count.done, count.tried, "Processed"));
}

Renamer::Count Renamer::RenameSelection(const Watch& watch, bool ResetPerFolder) {
  RowStore& rows = engine_.document.ListView1;
  const Collection& paths = engine_.document.FileArray;
  const FileSystem& files = engine_.services.files;
  const RenameRules rules(config_);
  const int maximum = static_cast<int>(paths.size()) + 1;
  Numbering numbering(files, paths.size(), ResetPerFolder);
  Count count;
  const RowStore::Bulk bulk(rows);
  for (int i = 1; i <= rows.Count(); ++i) {
    if (rows.At(i).selected) {
      const std::string& path = paths.at(static_cast<std::size_t>(count.tried++));
      const Numbering::Number number = rules.CountsFiles() ? numbering.Next(path) : Numbering::Number{};
      const PathIs known = not_files_.contains(path) ? PathIs::kNotKnown : PathIs::kFile;
      const std::string new_path = RenameByRules(files, rules, path, number.Index, number.Total, known).path;
      UndoOldPaths.push_back(path);
      UndoNewPaths.push_back(new_path);
      if (new_path != path) {
        ++count.done;
        if (rows.At(i).FullPath() != path) rows.SetCell(i, kPath, path.substr(0, path.rfind('\\') + 1));
        rows.SetCell(i, kFileName, GetFileName(new_path));
      }
    }
    watch.progress(count.tried, maximum);
  }
  return count;
}

void Renamer::cmdUndo_Click(const Watch& watch) {
  const WaitCursor wait(engine_.services.feedback);
  RowStore& rows = engine_.document.ListView1;
  Count count;
  {
    const RowStore::Bulk bulk(rows);
    rows.SelectWhere([](int, const Row&) { return false; });
    Report(watch, "Restoring Filenames...");
    count = RestoreNames(watch);
  }
  view.undo = count.done < count.tried;
  watch.progress(0, 1);
  if (count.tried == count.done) view.timer = true;
  Report(watch, DoneLine(count.done, count.tried, "Restored"));
}

// The last rename is taken back first. What can't be taken back stays, for another try.
Renamer::Count Renamer::RestoreNames(const Watch& watch) {
  RowStore& rows = engine_.document.ListView1;
  RowsByPath by_path(rows);
  const std::size_t all = UndoOldPaths.size();
  Count count;
  Collection old_left;
  Collection new_left;
  for (std::size_t i = all; i > 0; --i) {
    const std::string& old_path = UndoOldPaths[i - 1];
    const std::string& new_path = UndoNewPaths[i - 1];
    const bool changed = old_path != new_path;
    if (changed) ++count.tried;
    if (changed && RenameFileSafe(engine_.services.files, new_path, old_path)) {
      ++count.done;
      if (const int row = by_path.First(new_path); row > 0) {
        rows.SetCell(row, kFileName, GetFileName(old_path));
        rows.SetSelected(row, true);
        by_path.Move(row, new_path, rows.At(row).FullPath());
      }
    } else {
      old_left.push_back(old_path);
      new_left.push_back(new_path);
    }
    watch.progress(static_cast<int>(all - i), static_cast<int>(all));
  }
  UndoOldPaths.assign(old_left.rbegin(), old_left.rend());
  UndoNewPaths.assign(new_left.rbegin(), new_left.rend());
  return count;
}

void Renamer::CmdClose_Click() {
  engine_.view.Refresh();
  view.report = "Ready...";
}

void Renamer::Timer1_Timer() {
  view.process = true;
  view.timer = false;
}

void Renamer::AllowOnce_Click(bool ticked) {
  view.allow_once = ticked;
  if (ticked && view.undo) view.process = false;
  if (!ticked && !view.process) view.timer = true;
}

}  // namespace qublet

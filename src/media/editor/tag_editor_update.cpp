#include "media/editor/tag_editor.h"

#include <set>

#include "media/editor/tag_journal.h"
#include "media/editor/tag_run.h"
#include "playlist/paths/numbers.h"

// What the tag editor does to files.

namespace qublet {
namespace {

constexpr const char* kOneFailed = "Failed to update the file!, check that it is not in use or set as Read-Only.";
constexpr const char* kSomeFailed =
    "Some files could not be updated!, check that they are not in use or set as Read-Only.";

std::string NamesOf(const std::vector<TagUndo::Left>& left) {
  std::string names;
  for (const TagUndo::Left& file : left) names += (names.empty() ? "" : ", ") + file.path;
  return names;
}

// The rows of these files, however often each stands in the list.
std::vector<int> RowsOf(const RowStore& rows, const Collection& paths) {
  const std::set<std::string> wanted(paths.begin(), paths.end());
  std::vector<int> indexes;
  for (int i = 1; i <= rows.Count(); ++i) {
    if (wanted.contains(rows.At(i).RealPath())) indexes.push_back(i);
  }
  return indexes;
}

}  // namespace

void TagEditor::CmdUpdate_Click(const Watch& watch) {
  const FileSystem& files = engine_.services.files;
  const Collection paths = files_.SelectedPaths;
  const int maximum = static_cast<int>(paths.size()) * 2;
  bool all_ok = true;
  int value = 0;
  TagRunRecord record(files, engine_.services.clock, kWindowRun);
  {
    const WaitCursor wait(engine_.services.feedback);
    CollectLists();
    TagRun run(files, record, [&](const std::string& path) { return PlanUpdate(files, path, view.form); },
               {[&] { watch.progress(++value, maximum); }, watch.stopped,
                [&](const std::string&, const Outcome& outcome) { all_ok = all_ok && outcome; }});
    run.Over(paths);
    RebuildRows(files_.SelectedIndexes, [&] { watch.progress(value, maximum); });
  }
  view.report = record.Lost().empty() ? "" : "This update can't be undone: " + record.Lost() + ".";
  if (!all_ok) {
    engine_.services.dialogs.ShowMessage(paths.size() == 1 ? kOneFailed : kSomeFailed, MessageIcon::kExclamation,
                                         MessageButtons::kOk);
  }
  CmdRefresh_Click();
}

void TagEditor::CmdUndo_Click() {
  const std::optional<int> number = NewestTagRun(engine_.services.files, kWindowRun);
  if (!number) return;
  TagUndo undo;
  const Outcome undone = Attempt([&] {
    const WaitCursor wait(engine_.services.feedback);
    undo = UndoTagRun(engine_.services.files, *number);
    RebuildRows(RowsOf(engine_.document.ListView1, undo.restored), [] {});
  });
  const std::size_t restored = undo.restored.size();
  view.report = "Update undone: " + std::to_string(restored) + (restored == 1 ? " file" : " files") + ".";
  if (!undo.left.empty()) view.report += " Left as they are: " + NamesOf(undo.left);
  if (!undone) view.report = "The update can't be undone: " + undone.Reason() + ".";
  CmdRefresh_Click();
}

// Rows keep their place, their "Original Order" and their selection, and the focus its row; marks are lost.
void TagEditor::RebuildRows(const std::vector<int>& indexes, const std::function<void()>& step) {
  RowStore& rows = engine_.document.ListView1;
  const RowStore::Bulk bulk(rows);
  const int focused = rows.FocusedRow();
  for (const int index : indexes) {
    RebuildRow(index);
    step();
  }
  if (focused > 0) rows.SetFocusedRow(focused);
}

void TagEditor::RebuildRow(int index) {
  RowStore& rows = engine_.document.ListView1;
  const std::string path = rows.At(index).FullPath();
  const bool selected = rows.At(index).selected;
  int order = 0;
  ResumeNext([&] { order = TextToInteger16(rows.At(index).cells[kOriginalOrder]); });
  rows.Remove(index);
  engine_.items.AddFile(path, index, order);
  rows.SetSelected(index, selected);
}

}  // namespace qublet

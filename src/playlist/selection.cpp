#include "playlist/selection.h"

#include <unordered_set>

#include "playlist/row_paths.h"

namespace qublet {
namespace {

Collection FoldersOfSelection(const RowStore& rows) {
  Collection folders;
  CollectFolders(PathsOf(rows, WhichRows::kSelected), folders);
  return folders;
}

}  // namespace

int CurrentRow(const RowStore& rows) {
  int only = 0;
  for (int i = 1; i <= rows.Count(); ++i) {
    if (!rows.At(i).selected) continue;
    if (only > 0) return rows.FocusedRow();
    only = i;
  }
  return only > 0 ? only : rows.FocusedRow();
}

void SelectAll(RowStore& rows) {
  rows.SelectWhere([](int, const Row&) { return true; });
}

void InvertSelection(RowStore& rows) {
  rows.SelectWhere([](int, const Row& row) { return !row.selected; });
}

void AlternateSelection(RowStore& rows) {
  int left = rows.SelectedCount();  // selected rows from the present one on
  rows.SelectWhere([&](int, const Row& row) { return row.selected && left-- % 2 == 0; });
}

void SelectAtRandom(RowStore& rows, Random& random) {
  int chosen = 0;
  rows.SelectWhere([&](int, const Row&) {
    random.Reseed();
    const bool select = random.Draw() >= 0.5 && chosen <= rows.Count() / 2;
    if (select) ++chosen;
    return select;
  });
}

void SelectInFolders(RowStore& rows) {
  const Collection collected = FoldersOfSelection(rows);
  const std::unordered_set<std::string> folders(collected.begin(), collected.end());
  rows.SelectWhere([&](int, const Row& row) { return folders.contains(row.cells[kPath]); });
}

void SetRowMark(RowStore& rows, RowIcon icon) {
  const RowStore::Bulk bulk(rows);
  for (int i = 1; i <= rows.Count(); ++i) {
    const Row& row = rows.At(i);
    if (row.selected && row.icon != RowIcon::kMissing && row.icon != icon) rows.SetIcon(i, icon);
  }
}

void SelectCheckMarked(RowStore& rows) {
  rows.SelectWhere([](int, const Row& row) { return row.icon >= RowIcon::kBlue; });
}

void ImportFolders(const RowStore& rows, Items& items) {
  for (const std::string& folder : FoldersOfSelection(rows)) {
    items.AddStuff(folder, true);
    if (items.Stopped()) return;
  }
}

std::string CommonFolder(const RowStore& rows, const FileSystem& files) {
  const std::string folder = FindCommonFolder(PathsOf(rows, WhichRows::kSelected));
  return folder.empty() ? files.CurrentFolder() : folder;
}

void ShowCurrentProperties(Document& document, Shell& shell) {
  const int row = CurrentRow(document.ListView1);
  if (row > 0) shell.ShowFileProperties(document.ListView1.At(row).RealPath());
}

void RemoveSelectedRows(Document& document) {
  const int gone = document.ListView1.RemoveIf([](const Row& row) { return row.selected; });
  if (gone > 0) document.PlaylistChanged = true;
}

bool ReplaceCurrentRow(Document& document, Items& items, Dialogs& dialogs) {
  RowStore& rows = document.ListView1;
  const int index = CurrentRow(rows);
  if (index == 0) return false;
  const auto name = dialogs.ShowOpen({rows.At(index).cells[kFileName], "All files (*.*)|*.*|", ""});
  if (!name) return false;
  document.WorkFolder = *name;
  int InsertPoint = index + 1;
  if (items.AddStuff(*name, true, InsertPoint)) {
    rows.Remove(index);
  } else if (!items.Stopped()) {
    dialogs.ShowMessage("Unable to add a reference to this file..", MessageIcon::kStop, MessageButtons::kOk);
  }
  return true;
}

}  // namespace qublet

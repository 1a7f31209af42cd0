#include "playlist/list_commands.h"

#include <string>

#include "playlist/selection.h"
#include "playlist/stoppable_change.h"

namespace qublet {

void ListCommands::ListView1_ColumnClick(int column) {
  if (document_.ListView1.Count() == 0 || column < 1 || column > kColumnCount) return;
  if (settings_.PROMPTSORT) {
    const std::string header(kColumns[static_cast<std::size_t>(column - 1)].header);
    const MessageAnswer answer =
        services_.dialogs.ShowMessage("Sort by " + header + "?", MessageIcon::kQuestion, MessageButtons::kYesNo);
    if (answer != MessageAnswer::kYes) return;
  }
  const auto [lncol, lnType] = SortOfColumn(column);
  msSortListview(document_.ListView1, sort_, lncol, lnType, services_.collation);
}

template <typename Steps>
void ListCommands::Run(Steps&& steps) {
  {
    const WaitCursor wait(services_.feedback);
    steps();
  }
  view_.Refresh();
}

void ListCommands::MEditMoveUp_Click() {
  MoveRowsUp(document_);
  view_.Refresh();
}

void ListCommands::MEditMoveDown_Click() {
  MoveRowsDown(document_);
  view_.Refresh();
}

void ListCommands::MEditSelTop_Click() {
  Run([&] { MoveRowsToTop(document_.ListView1); });
}

void ListCommands::MEditSelBottom_Click() {
  Run([&] { MoveRowsToBottom(document_.ListView1); });
}

void ListCommands::MEditSelShuffle_Click() {
  Run([&] { ShuffleSelection(document_.ListView1, settings_.SHUFFLEINT, services_.random); });
}

void ListCommands::MEditSelAll_Click() {
  Run([&] { SelectAll(document_.ListView1); });
}

void ListCommands::MEditSelInv_Click() {
  Run([&] { InvertSelection(document_.ListView1); });
}

void ListCommands::MEditSelAlt_Click() {
  Run([&] { AlternateSelection(document_.ListView1); });
}

void ListCommands::MEditSelRnd_Click() {
  Run([&] { SelectAtRandom(document_.ListView1, services_.random); });
}

void ListCommands::MEditSelFol_Click() {
  Run([&] { SelectInFolders(document_.ListView1); });
}

void ListCommands::MEditSelImpFol_Click() {
  Run([&] {
    const StoppableChange change(document_, services_.feedback);
    ImportFolders(document_.ListView1, items_);
  });
}

void ListCommands::MEditSelLoc_Click() {
  Run([&] { services_.shell.Explore(CommonFolder(document_.ListView1, services_.files)); });
}

void ListCommands::MEditFileInfo_Click() {
  const WaitCursor wait(services_.feedback);
  ShowCurrentProperties(document_, services_.shell);
}

void ListCommands::MToolsShortCutFind_Click() {
  const WaitCursor wait(services_.feedback);
  services_.shell.Find(CommonFolder(document_.ListView1, services_.files));
}

void ListCommands::MToolsShortCutVolume_Click() {
  if (services_.shell.OpenVolumeControl()) return;
  services_.dialogs.ShowMessage("There is no volume control on this system.", MessageIcon::kExclamation,
                                MessageButtons::kOk);
}

void ListCommands::Mark(RowIcon icon) {
  const WaitCursor wait(services_.feedback);
  SetRowMark(document_.ListView1, icon);
}

void ListCommands::MEditSeUnMark_Click() {
  Run([&] { SetRowMark(document_.ListView1, RowIcon::kNormal); });
}

void ListCommands::MEditSelectMark_Click() {
  Run([&] { SelectCheckMarked(document_.ListView1); });
}

void ListCommands::MEditAddDir_Click() {
  const std::optional<std::string> path =
      services_.dialogs.BrowseForFolder("Select Folder...", document_.WorkFolder, true);
  if (path) {
    document_.WorkFolder = *path;
    items_.AddStuff(*path, true);
  }
  view_.Refresh();
}

void ListCommands::MEditRemove_Click() {
  Run([&] { RemoveSelectedRows(document_); });
}

void ListCommands::Mreloc_Click() {
  bool picked = false;
  {
    const WaitCursor wait(services_.feedback);
    picked = ReplaceCurrentRow(document_, items_, services_.dialogs);
  }
  if (picked) view_.Refresh();
}

}  // namespace qublet

#pragma once

#include "platform/services.h"
#include "playlist/document.h"
#include "playlist/items.h"
#include "playlist/main_view.h"
#include "playlist/row_order.h"
#include "settings/app_settings.h"

namespace qublet {

// The commands that order, select, mark and remove rows, as the menus run them: with the wait cursor where work may
// be long, and with a refresh of the window at the end.
class ListCommands {
 public:
  ListCommands(Document& document, Items& items, AppSettings& settings, const Services& services, MainView& view)
      : document_(document), items_(items), settings_(settings), services_(services), view_(view) {}

  // Sorts as a click on the header of column `column`, counted from 1, does; asks first if the user wants to be
  // asked.
  void ListView1_ColumnClick(int column);

  void MEditMoveUp_Click();
  void MEditMoveDown_Click();
  void MEditSelTop_Click();
  void MEditSelBottom_Click();
  void MEditSelShuffle_Click();

  void MEditSelAll_Click();
  void MEditSelInv_Click();
  void MEditSelAlt_Click();
  void MEditSelRnd_Click();
  void MEditSelFol_Click();
  void MEditSelImpFol_Click();
  void MEditSelLoc_Click();
  void MEditFileInfo_Click();
  void MToolsShortCutFind_Click();
  void MToolsShortCutVolume_Click();

  void MEditSeMarkBlue_Click() { Mark(RowIcon::kBlue); }
  void MEditSeMarkGreen_Click() { Mark(RowIcon::kGreen); }
  void MEditSeMarkRed_Click() { Mark(RowIcon::kRed); }
  void MEditSeUnMark_Click();
  void MEditSelectMark_Click();

  void MEditAddDir_Click();
  void MEditRemove_Click();
  void Mreloc_Click();

 private:
  template <typename Steps>
  void Run(Steps&& steps);
  void Mark(RowIcon icon);

  Document& document_;
  Items& items_;
  AppSettings& settings_;
  Services services_;
  MainView& view_;
  ListSort sort_;
};

}  // namespace qublet

#pragma once

#include <cstdint>
#include <string>

#include "engine/engine.h"

namespace qublet {

// All that the window of tips shows.
struct TipView {
  std::string lblTipText = "There are no tips yet.";
  std::string CurTip;  // number of the tip on show
  bool chkLoadTipsAtStartup = true;
};

// The window of tips without its window. Tips are the lines of a text file that comes with the program; without one
// the buttons do nothing.
class TipOfTheDay {
 public:
  // The window loads.
  explicit TipOfTheDay(Engine& engine);

  TipView view;
  const Collection& AllTips() const { return Tips; }

  // The window comes to the front.
  void Activate() { cmdNextTip_Click(); }
  void cmdNextTip_Click();
  void CmdNext_Click();
  void CmdPrev_Click();
  // Kept at once.
  void chkLoadTipsAtStartup_Click(bool ticked);

 private:
  bool LoadTips(const std::string& sFile);
  std::int32_t Count() const { return static_cast<std::int32_t>(Tips.size()); }
  void Show(std::int32_t tip);
  void DisplayCurrentTip();

  Engine& engine_;
  Collection Tips;
  std::int32_t CurrentTip = 0;  // from 1
};

}  // namespace qublet

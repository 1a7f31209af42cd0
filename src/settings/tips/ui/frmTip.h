#pragma once

#include "desk/barless_dialog.h"
#include "settings/tips/tip_of_the_day.h"
#include "ui_frmTip.h"

namespace qublet {

// The tip of the day. It has room for the longest of them, so that no button moves from tip to tip.
class frmTip : public BarlessDialog, private Ui::frmTip {
  Q_OBJECT

 public:
  frmTip(Engine& engine, QWidget* parent);

 private:
  void MakeRoom();
  void Run(void (TipOfTheDay::*command)());
  void Render();

  TipOfTheDay tips_;
};

}  // namespace qublet

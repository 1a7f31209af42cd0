#pragma once

#include <QTimer>

#include "desk/barless_dialog.h"
#include "player/shutdown/shutdown_monitor.h"
#include "ui_frmEXWIN.h"

namespace qublet {

// The window that watches the player and counts down its silence. However it is closed, nothing is switched off.
class frmEXWIN : public BarlessDialog, private Ui::frmEXWIN {
  Q_OBJECT

 public:
  // `count` outlives it and goes on with the next one.
  frmEXWIN(Engine& engine, Background& background, ShutdownCount& count, QWidget* parent);

 private:
  void KeepRoomForTexts();
  void Render();

  ShutdownMonitor monitor_;
  QTimer tmrSHUTDOWN;
};

}  // namespace qublet

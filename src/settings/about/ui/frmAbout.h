#pragma once

#include <QTimer>

#include "desk/barless_dialog.h"
#include "platform/services.h"
#include "settings/about/about_texts.h"
#include "ui_frmAbout.h"

namespace qublet {

// What the program is, where its maker is found, and who is thanked.
class frmAbout : public BarlessDialog, private Ui::frmAbout {
  Q_OBJECT

 public:
  frmAbout(const Services& services, QWidget* parent);

 private:
  void ShowTexts();
  void MakeRoom();
  void Timer1_Timer();
  void Render();

  ScrollingLine credits_{Credits()};
  ScrollingLine dots_{Dots()};
  QTimer Timer1;
};

}  // namespace qublet

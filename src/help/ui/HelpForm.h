#pragma once

#include <QDialog>

#include "help/ui/beside_modal.h"
#include "help/ui/help_browser.h"
#include "ui_HelpForm.h"

namespace qublet {

// The window that the help is read in. It waits for nobody and nobody waits for it.
class HelpForm : public QDialog, private Ui::HelpForm {
  Q_OBJECT

 public:
  explicit HelpForm(QWidget* parent);

  // Shows a page of the book with these contents, and the window in front of all others of the program.
  void Open(const QString& contents, const QString& page);

 private:
  void FindAgain(bool backward);
  void FindTyped();
  void MakeKeys();
  void Zoom(int steps);

  BesideModal* beside_modal_;
  int zoomed_ = 0;
};

}  // namespace qublet

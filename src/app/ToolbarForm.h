#pragma once

#include <QDialog>

#include "app/toolbar_layout.h"
#include "ui_ToolbarForm.h"

namespace qublet {

// Lets the user choose the toolbar's buttons and their order: at the left what isn't shown, at the right what is.
class ToolbarForm : public QDialog, private Ui::ToolbarForm {
  Q_OBJECT

 public:
  ToolbarForm(const ToolbarLayout& layout, QWidget* owner);

  // What the user has made of it.
  ToolbarLayout Layout() const;

 private:
  void Show(const ToolbarLayout& layout);
  void EnableButtons();
  void CmdAdd_Click();
  void CmdRemove_Click();
  void Move(int by);
};

}  // namespace qublet

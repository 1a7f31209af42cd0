#pragma once

#include <QDialog>
#include <array>

#include "settings/preferences/preferences.h"
#include "ui_frmOptions.h"

namespace qublet {

// The preferences: a tree of pages. What is changed stays on the controls until OK or Apply.
class frmOptions : public QDialog, private Ui::frmOptions {
  Q_OBJECT

 public:
  frmOptions(Engine& engine, QWidget* parent);

 private:
  void BuildTree();
  void ShowOptionsPage(int page);
  void LoadOptionControls(const AppSettings& settings);
  void StoreOptionControls();
  void cmdOK_Click();
  void cmdDefault_Click();

  Preferences preferences_;
  std::array<OptionsPage*, 6> pages_;
};

}  // namespace qublet

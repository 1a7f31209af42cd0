#pragma once

#include <array>
#include <functional>

#include "desk/barless_dialog.h"
#include "generators/autocreate/autocreator.h"
#include "ui_AutoCreateWizard.h"

namespace qublet {

// The wizard that writes a playlist for each folder of the list and can take them all back.
class AutoCreateWizard : public BarlessDialog, private Ui::AutoCreateWizard {
  Q_OBJECT

 public:
  AutoCreateWizard(Engine& engine, QWidget* parent);

 private:
  struct Option {
    QRadioButton* button;
    AutoCreateMode mode;
  };

  std::array<Option, 4> Options() const;
  void MakeLists();
  void ConnectSteps();
  void ConnectModes();
  void ConnectFolders();

  void CmdNext_Click();
  void CmdBack_Click();
  void CmdTest_Click();
  void RunLong(const std::function<void(const AutoCreator::Watch& watch)>& work);

  void ShowFolders();
  void ShowNewReports();
  void Render();

  AutoCreator creator_;
  QLabel* empty_report_ = nullptr;
};

}  // namespace qublet

#pragma once

#include <functional>

#include "desk/barless_dialog.h"
#include "generators/disc/disc_wizard.h"
#include "ui_MP3CDWizard.h"

namespace qublet {

// The wizard that prepares a folder to be burned as a music disc.
class MP3CDWizard : public BarlessDialog, private Ui::MP3CDWizard {
  Q_OBJECT

 public:
  MP3CDWizard(Engine& engine, QWidget* parent);

 private:
  void FillLists();
  void ConnectSteps();
  void ConnectFolders();
  void ConnectExtras();

  void CmdNext_Click();
  void PrevReportSet_Click();
  void RunLong(const std::function<void(const DiscWizard::Watch& watch)>& work);
  void CDROMLoc_Edited(const QString& text);

  void ShowRecent();
  void Render();
  void RenderFolders();
  void RenderExtras();
  void RenderFinish();
  QPixmap IconPixmap() const;

  Engine& engine_;
  DiscWizard wizard_;
};

}  // namespace qublet

#pragma once

#include "desk/barless_dialog.h"
#include "generators/report/report_wizard.h"
#include "ui_ReportForm.h"

namespace qublet {

// The wizard that writes a report of the whole list. The settings stand on its controls; what a control can't show of
// a loaded file is kept beside it.
class ReportForm : public BarlessDialog, private Ui::ReportForm {
  Q_OBJECT

 public:
  ReportForm(Engine& engine, QWidget* parent);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void FillLists();
  void ConnectSteps();
  void ConnectColumns();
  void ConnectFonts();

  void LimitDescription();
  void Activate();
  void CmdNext_Click();
  void CmdBack_Click();
  void LoadCurrent_Click();
  void MoveSelected(int by);
  void MoveColumn(int from, int to);
  void TickAll(bool ticked);
  void FontList_Click();
  void FontSizer_Click();
  void Render();

  void SettingsToForm(const ReportSettings& settings);
  void ColumnsToForm(const ReportSettings& settings);
  void DelimitersToForm(const ReportSettings& settings);
  void FontToForm(const QString& name, std::int16_t size);
  ReportSettings FormToSettings() const;
  void DelimitersToSettings(ReportSettings& settings) const;

  ReportWizard wizard_;
  ReportSettings loaded_;  // what was put on the controls last
};

}  // namespace qublet

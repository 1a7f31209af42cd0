#include "tools/rename/ui/SetupPage.h"

namespace qublet {

SetupPage::SetupPage(QWidget* parent) : QWidget(parent) {
  setupUi(this);
}

void SetupPage::Attach(const PageRunner& runner) {
  Renamer& renamer = runner.renamer;
  const auto on_click = [&](QPushButton* button, void (Renamer::*command)()) {
    connect(button, &QPushButton::clicked, this,
            [&renamer, run = runner.run, command] { run([&] { (renamer.*command)(); }); });
  };
  on_click(RulesSave, &Renamer::RulesSave_Click);
  on_click(RulesLoad, &Renamer::RulesLoad_Click);
  on_click(RulesDef, &Renamer::RulesDef_Click);
  const auto on_tick = [&](QCheckBox* box, void (Renamer::*command)(bool)) {
    connect(box, &QCheckBox::clicked, this,
            [&renamer, run = runner.run, command](bool ticked) { run([&] { (renamer.*command)(ticked); }); });
  };
  on_tick(Warning, &Renamer::Warning_Click);
  on_tick(AllowOnce, &Renamer::AllowOnce_Click);
  on_tick(Delay, &Renamer::Delay_Click);
}

void SetupPage::Show(const RenameView& view) {
  Warning->setChecked(view.warning);
  AllowOnce->setChecked(view.allow_once);
  Delay->setChecked(view.delay);
}

}  // namespace qublet

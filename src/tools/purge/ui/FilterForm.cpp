#include "tools/purge/ui/FilterForm.h"

#include "desk/activation.h"
#include "platform/qt/input_lock.h"
#include "platform/qt/shown_text.h"
#include "tools/purge/ui/purge_runner.h"

namespace qublet {
namespace {

constexpr int kLettersAcross = 100;  // a folder, and how many files it holds

}  // namespace

FilterForm::FilterForm(Engine& engine, WindowFeedback& feedback, QWidget* parent)
    : QDialog(parent), purger_(engine), feedback_(feedback) {
  setupUi(this);
  const PurgeRunner runner{purger_, [this] { Render(); },
                           [this](void (Purger::*step)()) { RunLong([this, step] { (purger_.*step)(); }); }};
  MissingTab->Attach(runner);
  DuplicatesTab->Attach(runner);
  connect(CmdSearch, &QPushButton::clicked, this, &FilterForm::Process);
  connect(CmdClose, &QPushButton::clicked, this, &FilterForm::reject);
  new Activation(*this, [this](Activation::Cause) { Activate(); });
  FilterTab->setCurrentIndex(0);
  Render();
  resize(sizeHint().expandedTo({kLettersAcross * fontMetrics().averageCharWidth(), 0}));
}

void FilterForm::Activate() {
  purger_.Activate();
  Render();
}

void FilterForm::reject() {
  purger_.Close();
  Render();
  QDialog::reject();
}

void FilterForm::Process() {
  Purger::Watch watch;
  watch.changed = [this] {
    Render();
    feedback_.LetRepaint();
  };
  watch.alive = [this] { feedback_.LetRepaint(); };
  RunLong([&] { purger_.CmdSearch_Click(watch); });
}

// The window goes on painting; what is pressed meanwhile is thrown away, but for Escape, which ends a search.
void FilterForm::RunLong(const std::function<void()>& work) {
  setCursor(Qt::WaitCursor);
  work();
  InputLock().Pump();
  unsetCursor();
  Render();
}

void FilterForm::Render() {
  const FilterView& view = purger_.view;
  const bool ends = !view.stepping && !FilterTab->isTabEnabled(1);
  if (view.stepping) FilterTab->setCurrentIndex(0);
  FilterTab->setTabEnabled(1, !view.stepping);
  MissingTab->Show(view);
  DuplicatesTab->Show(view);
  ProgressBar1->setRange(0, view.maximum);
  ProgressBar1->setValue(view.progress);
  CmdSearch->setEnabled(view.CanSearch());
  lbReport->Report(ShownText(view.report));
  lbPlaces->Report(ShownText(view.absent_places));
  if (ends) CmdSearch->setFocus();
}

}  // namespace qublet

#include "tools/rename/ui/RenameForm.h"

#include <QElapsedTimer>
#include <QShortcut>

#include "desk/activation.h"
#include "platform/qt/input_lock.h"
#include "platform/qt/shown_text.h"

namespace qublet {
namespace {

constexpr qint64 kRepaintEvery = 20;  // milliseconds
constexpr int kLettersAcross = 116;   // two names, and what becomes of a file, side by side

void FillSummary(QTreeWidget& list, const std::vector<std::string>& sentences) {
  list.clear();
  int number = 0;
  for (const std::string& sentence : sentences)
    new QTreeWidgetItem(&list, {QString::number(++number), ShownText(sentence)});
  list.resizeColumnToContents(0);
}

}  // namespace

RenameForm::RenameForm(Engine& engine, QWidget* parent) : QDialog(parent), renamer_(engine) {
  setupUi(this);
  Timer1.setObjectName(QStringLiteral("Timer1"));
  const PageRunner runner{renamer_, [this](const std::function<void()>& command) { Run(command); }};
  SetupTab->Attach(runner);
  MacrosTab->Attach(runner);
  RulesTab->Attach(runner);
  PreviewTab->Attach(renamer_, engine);
  connect(CmdProcess, &QPushButton::clicked, this, [this] { RunLong(&Renamer::CmdProcess_Click); });
  connect(cmdUndo, &QPushButton::clicked, this, [this] { RunLong(&Renamer::cmdUndo_Click); });
  connect(CmdClose, &QPushButton::clicked, this, &RenameForm::reject);
  connect(RenameTab, &QTabWidget::currentChanged, this, &RenameForm::RenameTab_Click);
  connect(&Timer1, &QTimer::timeout, this, [this] { Run([this] { renamer_.Timer1_Timer(); }); });
  new Activation(*this, [this](Activation::Cause) { Activate(); });
  RenameTab->setCurrentIndex(0);
  Render();
  resize(sizeHint().expandedTo({kLettersAcross * fontMetrics().averageCharWidth(), 0}));
}

void RenameForm::Activate() {
  PreviewTab->Forget();
  renamer_.Activate();
  RenameTab->setCurrentIndex(0);
  Render();
}

void RenameForm::reject() {
  PreviewTab->Stop();
  Run([this] { renamer_.CmdClose_Click(); });
  QDialog::reject();
}

void RenameForm::Run(const std::function<void()>& command) {
  command();
  Render();
}

// The window goes on painting; what is pressed meanwhile is thrown away.
void RenameForm::RunLong(void (Renamer::*command)(const Renamer::Watch&)) {
  PreviewTab->Stop();
  InputLock lock;
  QElapsedTimer painted;
  painted.start();
  Renamer::Watch watch;
  watch.report = [this](const std::string& text) {
    CmdProcess->setEnabled(renamer_.view.process);
    lbReport->Report(ShownText(text));
  };
  watch.progress = [&](int value, int maximum) {
    ProgressBar1->setRange(0, maximum);
    ProgressBar1->setValue(value);
    if (painted.elapsed() < kRepaintEvery) return;
    lock.Pump();
    painted.restart();
  };
  setCursor(Qt::WaitCursor);
  (renamer_.*command)(watch);
  unsetCursor();
  PreviewTab->Forget();
  Render();
}

void RenameForm::Render() {
  const RenameView& view = renamer_.view;
  SetupTab->Show(view);
  MacrosTab->Show(view);
  RulesTab->Show(view);
  CmdProcess->setEnabled(view.process);
  cmdUndo->setEnabled(view.undo);
  lbReport->Report(ShownText(view.report));
  RenderTimer();
  PreviewTab->Refresh();
}

void RenameForm::RenderTimer() {
  const int interval = renamer_.TimerInterval();
  if (Timer1.interval() != interval) Timer1.setInterval(interval);
  if (renamer_.view.timer == Timer1.isActive()) return;
  renamer_.view.timer ? Timer1.start() : Timer1.stop();
}

void RenameForm::RenameTab_Click(int /*page*/) {
  if (RenameTab->currentWidget() != SummaryTab) return;
  setCursor(Qt::WaitCursor);
  renamer_.ShowSummary();
  FillSummary(*TestList, renamer_.view.TestList);
  unsetCursor();
  Render();
}

}  // namespace qublet

#include "generators/autocreate/ui/AutoCreateWizard.h"

#include <QScrollBar>
#include <QShortcut>
#include <QSignalBlocker>

#include "desk/busy_window.h"
#include "desk/empty_list.h"
#include "platform/qt/shown_text.h"

namespace qublet {
namespace {

constexpr int kLettersAcross = 84;
constexpr int kRowsInSight = 10;

// A row a text, none wider than the list.
void AddRow(QTreeWidget& list, const std::string& text) {
  auto* item = new QTreeWidgetItem(&list, {ShownText(text)});
  item->setToolTip(0, ShownTip(text));
}

void MakeList(QTreeWidget& list) {
  list.setTextElideMode(Qt::ElideMiddle);
  list.setMinimumHeight(kRowsInSight * list.fontMetrics().lineSpacing());
}

}  // namespace

AutoCreateWizard::AutoCreateWizard(Engine& engine, QWidget* parent) : BarlessDialog(parent), creator_(engine) {
  setupUi(this);
  MakeLists();
  ConnectSteps();
  ConnectModes();
  ConnectFolders();
  ShowFolders();
  Render();
  resize(sizeHint().expandedTo({kLettersAcross * fontMetrics().averageCharWidth(), 0}));
  if (creator_.view.next) {
    BaseFolderOnly->setFocus();
  } else {
    CmdClose->setFocus();
  }
}

std::array<AutoCreateWizard::Option, 4> AutoCreateWizard::Options() const {
  return {{{BaseFolderOnly, AutoCreateMode::kBaseFolderOnly},
           {RootFolderOnly, AutoCreateMode::kRootFolderOnly},
           {BothFolders, AutoCreateMode::kBothFolders},
           {MyFolderOnly, AutoCreateMode::kMyFolderOnly}}};
}

// The last line of the report stays in view, and the report where it is when the text above it gets longer.
void AutoCreateWizard::MakeLists() {
  MakeList(*lstPaths);
  MakeList(*lstReport);
  empty_report_ = SayWhatFills(*lstReport, tr("What is done comes here, file by file."));
  connect(lstReport->verticalScrollBar(), &QScrollBar::rangeChanged, lstReport, &QTreeWidget::scrollToBottom);
  Label5->setMinimumHeight(2 * Label5->fontMetrics().lineSpacing());
}

void AutoCreateWizard::ConnectSteps() {
  connect(CmdNext, &QPushButton::clicked, this, &AutoCreateWizard::CmdNext_Click);
  connect(CmdBack, &QPushButton::clicked, this, &AutoCreateWizard::CmdBack_Click);
  connect(CmdClose, &QPushButton::clicked, this, &AutoCreateWizard::reject);
  connect(CmdTest, &QPushButton::clicked, this, &AutoCreateWizard::CmdTest_Click);
  connect(cmdUndo, &QPushButton::clicked, this,
          [this] { RunLong([this](const AutoCreator::Watch& watch) { creator_.cmdUndo_Click(watch); }); });
  connect(Parameters, &QLineEdit::textChanged, this,
          [this](const QString& text) { creator_.view.Parameters = text.toStdString(); });
}

void AutoCreateWizard::ConnectModes() {
  for (const auto& [option, mode] : Options()) {
    connect(option, &QRadioButton::clicked, this, [this, mode] {
      creator_.Mode_Click(mode);
      Render();
      // Without a folder another option is on.
      if (MyFolderOnly->hasFocus() && BaseFolderOnly->isChecked()) BaseFolderOnly->setFocus();
    });
  }
}

// What a double click does, F4 does.
void AutoCreateWizard::ConnectFolders() {
  connect(lstPaths, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item) {
    const auto row = static_cast<std::size_t>(lstPaths->indexOfTopLevelItem(item));
    creator_.view.lstPaths.at(row).ticked = item->checkState(0) == Qt::Checked;
  });
  const auto open = [this] { creator_.lstPaths_DblClick(lstPaths->indexOfTopLevelItem(lstPaths->currentItem())); };
  connect(lstPaths, &QTreeWidget::itemDoubleClicked, this, open);
  connect(new QShortcut(Qt::Key_F4, lstPaths, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated, this,
          open);
}

void AutoCreateWizard::CmdNext_Click() {
  CmdNext->setFocus();
  RunLong([this](const AutoCreator::Watch& watch) { creator_.CmdNext_Click(watch); });
  // Only a new beginning comes back to the first frame.
  if (creator_.view.frame == AutoCreator::kModeFrame) ShowFolders();
  if (creator_.view.closes_next) CmdClose->setFocus();
}

void AutoCreateWizard::CmdBack_Click() {
  creator_.CmdBack_Click();
  Render();
}

void AutoCreateWizard::CmdTest_Click() {
  const bool gives_a_name = creator_.CmdTest_Click();
  Render();
  if (!gives_a_name) Parameters->setFocus();
}

void AutoCreateWizard::RunLong(const std::function<void(const AutoCreator::Watch& watch)>& work) {
  BusyWindow busy(*this);
  work([&] {
    if (!busy.IsDue()) return;
    Render();
    busy.Repaint();
  });
  Render();
}

void AutoCreateWizard::ShowFolders() {
  const QSignalBlocker quiet(lstPaths);
  lstPaths->clear();
  for (const TickedFolder& folder : creator_.view.lstPaths) {
    AddRow(*lstPaths, folder.path);
    QTreeWidgetItem* const item = lstPaths->topLevelItem(lstPaths->topLevelItemCount() - 1);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(0, folder.ticked ? Qt::Checked : Qt::Unchecked);
  }
  lstPaths->setCurrentItem(lstPaths->topLevelItem(0));
}

void AutoCreateWizard::ShowNewReports() {
  const Collection& reports = creator_.view.lstReport;
  if (reports.empty()) lstReport->clear();
  empty_report_->setVisible(reports.empty());
  const auto shown = static_cast<std::size_t>(lstReport->topLevelItemCount());
  if (shown == reports.size()) return;
  for (std::size_t line = shown; line < reports.size(); ++line) AddRow(*lstReport, reports[line]);
  lstReport->scrollToBottom();
}

void AutoCreateWizard::Render() {
  const AutoCreateView& view = creator_.view;
  // A button that has the keyboard hands it on before it can't be used.
  if (!view.back && CmdBack->hasFocus()) CmdNext->setFocus();
  if (!view.undo && cmdUndo->hasFocus()) CmdClose->setFocus();
  FrameStep->setCurrentIndex(view.frame);
  CmdBack->setEnabled(view.back);
  CmdNext->setEnabled(view.next);
  cmdUndo->setEnabled(view.undo);
  Label1->setText(QString::fromStdString(view.Label1));
  Label5->setText(QString::fromStdString(view.Label5));
  for (const auto& [option, mode] : Options()) {
    option->setEnabled(view.modes);
    option->setChecked(view.mode == mode);
  }
  MyFolderLine->Report(view.mode == AutoCreateMode::kMyFolderOnly ? ShownText(creator_.MyFolder()) : QString());
  if (Parameters->text().toStdString() != view.Parameters)
    Parameters->setText(QString::fromStdString(view.Parameters));
  TestOutput->Report(ShownText(view.TestOutput));
  ShowNewReports();
  ProgressBar2->setRange(0, view.maximum);
  ProgressBar2->setValue(view.progress);
}

}  // namespace qublet

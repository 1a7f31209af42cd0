#include "player/shutdown/ui/frmEXWIN.h"

#include <algorithm>

namespace qublet {
namespace {

constexpr int kTick = 1000;  // milliseconds
constexpr int kLettersAcross = 44;

}  // namespace

frmEXWIN::frmEXWIN(Engine& engine, Background& background, ShutdownCount& count, QWidget* parent)
    : BarlessDialog(parent), monitor_(engine, background, count, {[this] { Render(); }, [this] { reject(); }}) {
  setupUi(this);
  KeepRoomForTexts();
  tmrSHUTDOWN.setObjectName(QStringLiteral("tmrSHUTDOWN"));
  tmrSHUTDOWN.setParent(this);
  tmrSHUTDOWN.setInterval(kTick);
  connect(&tmrSHUTDOWN, &QTimer::timeout, this, [this] { monitor_.tmrSHUTDOWN_Timer(); });
  connect(cmdHALT, &QPushButton::clicked, this, [this] { monitor_.cmdHALT_Click(); });
  connect(cmdCLOSE, &QPushButton::clicked, this, &frmEXWIN::reject);
  monitor_.Form_Load();
  resize(sizeHint().expandedTo({kLettersAcross * fontMetrics().averageCharWidth(), 0}));
}

// No button moves when its neighbour says something else.
void frmEXWIN::KeepRoomForTexts() {
  int width = 0;
  for (const QString& caption : {tr("&Resume>"), tr("&Pause>")}) {
    cmdHALT->setText(caption);
    width = std::max(width, cmdHALT->sizeHint().width());
  }
  cmdHALT->setMinimumWidth(width);
}

void frmEXWIN::Render() {
  const ShutdownView& view = monitor_.view;
  ProgressBar1->setValue(view.ProgressBar1);
  Label2->setText(QString::fromStdString(view.Label2));
  cmdHALT->setText(QString::fromStdString(view.cmdHALT));
  if (view.tmrSHUTDOWN == tmrSHUTDOWN.isActive()) return;
  view.tmrSHUTDOWN ? tmrSHUTDOWN.start() : tmrSHUTDOWN.stop();
}

}  // namespace qublet

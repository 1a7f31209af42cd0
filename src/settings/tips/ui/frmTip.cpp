#include "settings/tips/ui/frmTip.h"

#include <algorithm>

#include "desk/activation.h"
#include "platform/qt/pictures.h"

namespace qublet {
namespace {

constexpr int kLettersAcross = 60;
constexpr int kLinesAtLeast = 4;
constexpr int kPictureSide = 32;
constexpr int kDigits = 5;

}  // namespace

frmTip::frmTip(Engine& engine, QWidget* parent) : BarlessDialog(parent), tips_(engine) {
  setupUi(this);
  Picture1->setPixmap(Picture(QStringLiteral("help")).pixmap(kPictureSide));
  CurTip->setFixedWidth(CurTip->sizeHint().height() + kDigits * fontMetrics().horizontalAdvance(u'0'));
  MakeRoom();
  connect(cmdNextTip, &QPushButton::clicked, this, [this] { Run(&TipOfTheDay::cmdNextTip_Click); });
  connect(CmdNext, &QPushButton::clicked, this, [this] { Run(&TipOfTheDay::CmdNext_Click); });
  connect(CmdPrev, &QPushButton::clicked, this, [this] { Run(&TipOfTheDay::CmdPrev_Click); });
  connect(chkLoadTipsAtStartup, &QCheckBox::clicked, this,
          [this](bool ticked) { tips_.chkLoadTipsAtStartup_Click(ticked); });
  connect(cmdOK, &QPushButton::clicked, this, &frmTip::reject);
  new Activation(*this, [this](Activation::Cause) { Run(&TipOfTheDay::Activate); });
  Render();
  cmdOK->setFocus();
}

void frmTip::MakeRoom() {
  const int width = kLettersAcross * fontMetrics().averageCharWidth();
  int height = kLinesAtLeast * fontMetrics().lineSpacing();
  for (const std::string& tip : tips_.AllTips()) {
    lblTipText->Show(tip);
    height = std::max(height, lblTipText->heightForWidth(width));
  }
  lblTipText->setMinimumSize(width, height);
}

void frmTip::Run(void (TipOfTheDay::*command)()) {
  (tips_.*command)();
  Render();
}

void frmTip::Render() {
  lblTipText->Show(tips_.view.lblTipText);
  CurTip->setText(QString::fromStdString(tips_.view.CurTip));
  chkLoadTipsAtStartup->setChecked(tips_.view.chkLoadTipsAtStartup);
}

}  // namespace qublet

#include "settings/about/ui/frmAbout.h"

#include <QFontDatabase>
#include <chrono>

#include "platform/qt/pictures.h"
#include "settings/about/system_info.h"

namespace qublet {
namespace {

constexpr std::chrono::milliseconds kScrollEvery{150};
constexpr int kLettersAcross = 60;
constexpr int kPictureSide = 64;

}  // namespace

frmAbout::frmAbout(const Services& services, QWidget* parent) : BarlessDialog(parent) {
  setupUi(this);
  ShowTexts();
  MakeRoom();
  connect(lblWebsite, &QLabel::linkActivated, this, [&services] { services.shell.OpenAddress(Site()); });
  connect(cmdSysInfo, &QPushButton::clicked, this, [&services] { StartSysInfo(services); });
  connect(cmdOK, &QPushButton::clicked, this, &frmAbout::reject);
  connect(&Timer1, &QTimer::timeout, this, &frmAbout::Timer1_Timer);
  Timer1.start(kScrollEvery);
  Render();
  cmdOK->setFocus();
}

void frmAbout::ShowTexts() {
  const QString caption = QString::fromStdString(AboutCaption());
  setWindowTitle(caption);
  Label1->setText(caption);
  Picture1->setPixmap(Picture(QStringLiteral("program")).pixmap(kPictureSide));
  lblVersion->setText(QString::fromStdString(VersionLine()));
  lblWebsite->ShowLink(QString::fromStdString(Site()));
  lblDescription->setText(QString::fromUtf8(kDescription));
  // Told whole: what wanders can't be read aloud.
  Text1->setAccessibleName(QString::fromStdString(Credits()).trimmed());
}

// In letters of one width they wander by even steps.
void frmAbout::MakeRoom() {
  const QFont even = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  for (QLabel* box : {Text1, Text2}) box->setFont(even);
  lblDescription->setMinimumWidth(kLettersAcross * fontMetrics().averageCharWidth());
}

void frmAbout::Timer1_Timer() {
  credits_.Tick();
  dots_.Tick();
  Render();
}

void frmAbout::Render() {
  Text1->setText(QString::fromStdString(credits_.Shown()));
  Text2->setText(QString::fromStdString(dots_.Shown()));
}

}  // namespace qublet

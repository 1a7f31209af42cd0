#include "app/SplashFrm.h"

#include <QGuiApplication>
#include <QScreen>

#include "settings/application.h"

namespace qublet {

SplashFrm::SplashFrm(std::function<void(QWidget& splash)> ShowMain)
    : QWidget(nullptr, Qt::SplashScreen), show_main_(std::move(ShowMain)) {
  setupUi(this);
  const ProgramVersion version;
  Label1->setText(QStringLiteral("%1 v%2.%3.%4")
                      .arg(QString::fromUtf8(version.stem.data(), static_cast<qsizetype>(version.stem.size())))
                      .arg(version.major_number)
                      .arg(version.minor_number)
                      .arg(version.revision));
  StartLabel->setText(QStringLiteral("Welcome to the playlist editor. Build: %1").arg(version.revision));
  if (const QScreen* screen = QGuiApplication::primaryScreen()) {
    move(screen->availableGeometry().center() - rect().center());
  }
  Timer1.setInterval(200);
  Timer1.setTimerType(Qt::PreciseTimer);
  Timer1.setSingleShot(true);
  connect(&Timer1, &QTimer::timeout, this, &SplashFrm::Timer1_Timer);
}

void SplashFrm::Begin() {
  Timer1.start();
  show();
  QCoreApplication::processEvents();
  begun_ = true;
}

void SplashFrm::Timer1_Timer() {
  constexpr int kSoon = 10;  // milliseconds
  if (!begun_) return Timer1.start(kSoon);
  StartLabel->setText(QStringLiteral("Restoring Playlist from Previous Session...WAIT"));
  StartLabel->repaint();
  setCursor(Qt::WaitCursor);
  show_main_(*this);
  hide();
}

}  // namespace qublet

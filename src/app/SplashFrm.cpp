#include "app/SplashFrm.h"

#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QScreen>
#include <QThread>

#include "platform/qt/pictures.h"
#include "settings/application.h"

namespace qublet {
namespace {

constexpr int kPictureSide = 64;
constexpr QStringView kRestoring = u"Restoring Playlist from Previous Session...WAIT";

}  // namespace

SplashFrm::SplashFrm(std::function<void(QWidget& splash)> ShowMain)
    : QFrame(nullptr, Qt::SplashScreen), show_main_(std::move(ShowMain)) {
  setupUi(this);
  const ProgramVersion version;
  Picture1->setPixmap(Picture(QStringLiteral("program")).pixmap(kPictureSide));
  TitleLabel->setText(QString::fromStdString(AppTitle(version)));
  Label1->setText(QStringLiteral("%1 v%2.%3.%4")
                      .arg(QString::fromUtf8(version.stem.data(), static_cast<qsizetype>(version.stem.size())))
                      .arg(version.major_number)
                      .arg(version.minor_number)
                      .arg(version.revision));
  MakeRoom();
  StartLabel->setText(QStringLiteral("Welcome to the playlist editor. Build: %1").arg(version.revision));
  Timer1.setInterval(200);
  Timer1.setTimerType(Qt::PreciseTimer);
  Timer1.setSingleShot(true);
  connect(&Timer1, &QTimer::timeout, this, &SplashFrm::Timer1_Timer);
}

// For the longest of its texts, in the middle of the screen.
void SplashFrm::MakeRoom() {
  StartLabel->setText(kRestoring.toString());
  setFixedSize(sizeHint());
  if (const QScreen* screen = QGuiApplication::primaryScreen()) {
    move(screen->availableGeometry().center() - rect().center());
  }
}

void SplashFrm::Begin() {
  constexpr int kPatience = 1000, kStep = 2;  // milliseconds
  Timer1.start();
  show();
  // A window system takes its time until a window can be painted; once the main window is being made it is too late.
  const QDeadlineTimer end(kPatience);
  while (!painted_ && !end.hasExpired()) {
    QThread::msleep(kStep);
    QCoreApplication::processEvents();
  }
  begun_ = true;
}

void SplashFrm::paintEvent(QPaintEvent* event) {
  QFrame::paintEvent(event);
  painted_ = true;
}

void SplashFrm::Timer1_Timer() {
  constexpr int kSoon = 10;  // milliseconds
  if (!begun_) return Timer1.start(kSoon);
  StartLabel->setText(kRestoring.toString());
  StartLabel->repaint();
  setCursor(Qt::WaitCursor);
  show_main_(*this);
  hide();
}

}  // namespace qublet

// A plug-in that Qt loads into a program to be measured. It ends the program once its main window is painted, and
// prints when that was (nanoseconds of the steady clock), how long the first timer had been set to (milliseconds; the
// pause of a splash window is by design) and how much memory the program takes (bytes).

#include <unistd.h>

#include <QCoreApplication>
#include <QEvent>
#include <QGenericPlugin>
#include <QMainWindow>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <fstream>

namespace {

qint64 Now() {
  return std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

qint64 ResidentBytes() {
  qint64 pages = 0;
  qint64 resident = 0;
  std::ifstream("/proc/self/statm") >> pages >> resident;
  return resident * sysconf(_SC_PAGESIZE);
}

class Watcher : public QObject {
 public:
  Watcher() { QCoreApplication::instance()->installEventFilter(this); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    const auto* timer = qobject_cast<QTimer*>(watched);
    if (event->type() == QEvent::Timer && timer != nullptr && pause_ == 0) pause_ = timer->interval();
    if (event->type() == QEvent::Paint && qobject_cast<QMainWindow*>(watched) != nullptr) {
      // The rest of the window is painted before the program comes back for more.
      QMetaObject::invokeMethod(this, &Watcher::Report, Qt::QueuedConnection);
    }
    return false;
  }

 private:
  void Report() const {
    std::printf("%lld %d %lld\n", Now(), pause_, ResidentBytes());
    std::fflush(stdout);
    _exit(0);
  }

  int pause_ = 0;
};

class FirstPicture : public QGenericPlugin {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "first_picture.json")

 public:
  QObject* create(const QString&, const QString&) override { return new Watcher; }
};

}  // namespace

#include "first_picture.moc"

// Another program beside the main window, for tests of drag and drop: a window that offers files when it is dragged
// from, and tells what is dropped on it, a line of standard output each.
//
// Usage: drag_peer X Y SIDE [ADDRESS...]                  the window's place, and what it offers
//        drag_peer --clipboard START RESULT               once the file START is there, writes the clipboard's text
//        drag_peer --in-front                             an ordinary window that takes the keyboard
#include <QApplication>
#include <QClipboard>
#include <QDrag>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QThread>
#include <QWidget>
#include <cstdio>

namespace {

void Tell(const QByteArray& line) {
  std::printf("%s\n", line.constData());
  std::fflush(stdout);
}

class Peer : public QWidget {
 public:
  explicit Peer(QByteArray addresses) : addresses_(std::move(addresses)) {
    setWindowFlag(Qt::X11BypassWindowManagerHint);
    setAcceptDrops(true);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    if (!told_) Tell("ready");
    told_ = true;
  }
  void mouseMoveEvent(QMouseEvent* /*event*/) override {
    if (addresses_.isEmpty()) return;
    auto* offer = new QMimeData;
    offer->setData(QStringLiteral("text/uri-list"), addresses_);
    auto* drag = new QDrag(this);
    drag->setMimeData(offer);
    const Qt::DropAction action = drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction);
    Tell("gave " + QByteArray::number(action));
  }
  void dragEnterEvent(QDragEnterEvent* event) override { event->acceptProposedAction(); }
  void dropEvent(QDropEvent* event) override {
    const QByteArray list = event->mimeData()->data(QStringLiteral("text/uri-list")).replace("\r\n", " ");
    Tell("took " + QByteArray::number(event->possibleActions()) + " " + list);
    event->acceptProposedAction();
  }

 private:
  QByteArray addresses_;
  bool told_ = false;
};

int ReadClipboard(const QString& start, const QString& result) {
  while (!QFile::exists(start)) QThread::msleep(10);
  const QByteArray text = QGuiApplication::clipboard()->text().toUtf8();
  QFile file(result);
  return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const QStringList arguments = QApplication::arguments();
  if (arguments.value(1) == QStringLiteral("--clipboard")) {
    return ReadClipboard(arguments.value(2), arguments.value(3));
  }
  if (arguments.value(1) == QStringLiteral("--in-front")) {
    QWidget window;
    window.resize(200, 200);
    window.show();
    window.activateWindow();
    return QApplication::exec();
  }
  QByteArray addresses;
  for (const QString& address : arguments.mid(4)) addresses += address.toUtf8() + "\r\n";
  Peer peer(addresses);
  const int side = arguments.value(3).toInt();
  peer.setGeometry(arguments.value(1).toInt(), arguments.value(2).toInt(), side, side);
  peer.show();
  return QApplication::exec();
}

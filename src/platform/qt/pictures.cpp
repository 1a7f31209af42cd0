#include "platform/qt/pictures.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <utility>

#include "platform/qt/drawing.h"

// The macro declares a function of the global namespace. A static library's resources are left out unless asked for.
static void HoldPictures() {
  Q_INIT_RESOURCE(pictures);
}

namespace qublet {
namespace {

QString FolderOfPictures() {
  HoldPictures();
  return QStringLiteral(":/pictures/");
}

// The colours that the drawings are made in, and what they become on a palette. Other colours stay as they are drawn.
constexpr const char* kInk = "#3b4248";    // lines
constexpr const char* kPaper = "#fcfcfc";  // signs cut out of a coloured shape
constexpr const char* kAccents[] = {"#3d7fe6", "#35a04a", "#dc4c41", "#eaaa2a"};
constexpr float kPaleness = 0.45F;

struct Tints {
  QColor ink;
  QColor paper;
  bool pale = false;  // without colour, for what can't be used
};

Tints TintsOf(const QPalette& palette, QIcon::Mode mode) {
  if (mode == QIcon::Selected) return {palette.color(QPalette::HighlightedText), palette.color(QPalette::Highlight)};
  return {palette.color(QPalette::WindowText), palette.color(QPalette::Window), mode == QIcon::Disabled};
}

// In capitals, so that it is never taken for one of the colours drawn.
QByteArray Name(const QColor& colour) {
  return colour.name().toUpper().toLatin1();
}

QByteArray Between(const QColor& one, const QColor& other) {
  return Name(
      QColor((one.red() + other.red()) / 2, (one.green() + other.green()) / 2, (one.blue() + other.blue()) / 2));
}

QByteArray Tinted(QByteArray drawing, const Tints& tints) {
  if (tints.pale) {
    for (const char* accent : kAccents) drawing.replace(accent, Between(tints.ink, tints.paper));
  }
  return drawing.replace(kPaper, Name(tints.paper)).replace(kInk, Name(tints.ink));
}

void MakePale(QPixmap& picture) {
  QPainter painter(&picture);
  painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
  painter.fillRect(picture.rect(), QColor::fromRgbF(0, 0, 0, kPaleness));
}

class PictureEngine : public QIconEngine {
 public:
  PictureEngine(QString name, QByteArray drawing) : name_(std::move(name)), drawing_(std::move(drawing)) {}

  QIconEngine* clone() const override { return new PictureEngine(*this); }
  QString key() const override { return QStringLiteral("qublet-picture"); }
  QString iconName() override { return name_; }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
    const Tints tints = TintsOf(QGuiApplication::palette(), mode);
    const QString kept = QStringLiteral("qublet/%1/%2x%3/%4/%5/%6")
                             .arg(name_)
                             .arg(size.width())
                             .arg(size.height())
                             .arg(tints.ink.rgba())
                             .arg(tints.paper.rgba())
                             .arg(int{tints.pale});
    QPixmap picture;
    if (QPixmapCache::find(kept, &picture)) return picture;
    picture = Drawn(size, tints);
    if (tints.pale) MakePale(picture);
    QPixmapCache::insert(kept, picture);
    return picture;
  }

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
    const qreal scale = painter->device()->devicePixelRatio();
    painter->drawPixmap(rect, pixmap((QSizeF(rect.size()) * scale).toSize(), mode, state));
  }

 private:
  QPixmap Drawn(const QSize& size, const Tints& tints) const {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    PaintDrawing(painter, Tinted(drawing_, tints), QRectF(QPointF(), size));
    return picture;
  }

  QString name_;
  QByteArray drawing_;
};

}  // namespace

QIcon Picture(const QString& name) {
  QFile file(FolderOfPictures() + name + QStringLiteral(".svg"));
  if (!file.open(QIODevice::ReadOnly)) return {};
  return QIcon(new PictureEngine(name, file.readAll()));
}

QStringList PictureNames() {
  QStringList names = QDir(FolderOfPictures()).entryList({QStringLiteral("*.svg")}, QDir::Files);
  for (QString& name : names) name.chop(4);
  names.sort();
  return names;
}

}  // namespace qublet

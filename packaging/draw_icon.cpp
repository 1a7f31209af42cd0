// draw_icon DRAWING.svg SIDE OUT.png: the drawing on a transparent square of that many pixels.
#include <QFile>
#include <QImage>
#include <cstdio>

#include "platform/qt/drawing.h"

int main(int argc, char** argv) {
  if (argc != 4) return std::fputs("draw_icon wants DRAWING.svg SIDE OUT.png\n", stderr), 2;
  const int side = QByteArray(argv[2]).toInt();
  QImage picture(side, side, QImage::Format_ARGB32);
  picture.fill(Qt::transparent);
  QFile drawing(QString::fromLocal8Bit(argv[1]));
  QPainter painter(&picture);
  if (!drawing.open(QIODevice::ReadOnly) || !qublet::PaintDrawing(painter, drawing.readAll(), picture.rect()))
    return std::fprintf(stderr, "draw_icon: can't draw %s\n", argv[1]), 1;
  painter.end();
  return picture.save(QString::fromLocal8Bit(argv[3]), "PNG") ? 0 : 1;
}

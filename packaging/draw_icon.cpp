// draw_icon DRAWING.svg SIDE OUT.png: the drawing on a transparent square of that many pixels.
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

int main(int argc, char** argv) {
  if (argc != 4) return std::fputs("draw_icon wants DRAWING.svg SIDE OUT.png\n", stderr), 2;
  const int side = QByteArray(argv[2]).toInt();
  QImage picture(side, side, QImage::Format_ARGB32);
  picture.fill(Qt::transparent);
  QSvgRenderer drawing(QString::fromLocal8Bit(argv[1]));
  if (!drawing.isValid() || picture.isNull()) return std::fprintf(stderr, "draw_icon: can't draw %s\n", argv[1]), 1;
  QPainter painter(&picture);
  drawing.render(&painter);
  painter.end();
  return picture.save(QString::fromLocal8Bit(argv[3]), "PNG") ? 0 : 1;
}

#include "playlist/ui/row_icons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace qublet {
namespace {

constexpr qreal kSide = 16;  // pictures are drawn on a square of this side and scaled

void DrawNote(QPainter& painter, const QColor& colour) {
  painter.setPen(QPen(colour, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(colour);
  painter.drawEllipse(QRectF(2.5, 10.2, 4.2, 3.4));
  painter.drawEllipse(QRectF(9.3, 8.7, 4.2, 3.4));
  painter.drawLine(QPointF(6.5, 11.5), QPointF(6.5, 3.6));
  painter.drawLine(QPointF(13.3, 10.0), QPointF(13.3, 2.4));
  painter.drawLine(QPointF(6.5, 3.6), QPointF(13.3, 2.4));
}

void DrawCross(QPainter& painter, const QColor& colour) {
  painter.setPen(QPen(colour, 2.2, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(QPointF(4, 4), QPointF(12, 12));
  painter.drawLine(QPointF(12, 4), QPointF(4, 12));
}

void DrawTick(QPainter& painter, const QColor& colour) {
  painter.setPen(QPen(Qt::white, 0.8));
  painter.setBrush(colour);
  painter.drawRoundedRect(QRectF(1.5, 1.5, 13, 13), 2.5, 2.5);
  painter.setPen(QPen(Qt::white, 2.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  QPainterPath tick(QPointF(4.4, 8.4));
  tick.lineTo(7.0, 11.0);
  tick.lineTo(11.6, 5.2);
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(tick);
}

template <typename Draw>
QIcon Drawn(Draw draw) {
  QIcon icon;
  for (const int side : {16, 24, 32, 48}) {
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side / kSide, side / kSide);
    draw(painter);
    // The list paints its own selection: pictures stay in their colours in every mode.
    for (const auto mode : {QIcon::Normal, QIcon::Disabled, QIcon::Selected}) icon.addPixmap(picture, mode);
  }
  return icon;
}

}  // namespace

RowIcons::RowIcons()
    : icons_{Drawn([](QPainter& painter) { DrawNote(painter, QColor(0xC8, 0xCC, 0xD0)); }),
             Drawn([](QPainter& painter) { DrawCross(painter, QColor(0xE0, 0x6C, 0x5A)); }),
             Drawn([](QPainter& painter) { DrawTick(painter, QColor(0x2F, 0x6F, 0xD6)); }),
             Drawn([](QPainter& painter) { DrawTick(painter, QColor(0x2E, 0x8B, 0x3A)); }),
             Drawn([](QPainter& painter) { DrawTick(painter, QColor(0xC0, 0x2C, 0x2C)); })} {}

}  // namespace qublet

#include "desk/barless_dialog.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

namespace qublet {
namespace {

constexpr int kPicture = 16;  // pixels across
constexpr int kGap = 6;

}  // namespace

BarlessDialog::BarlessDialog(QWidget* parent) : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint) {
#ifdef Q_OS_WIN
  constexpr qreal kAlpha = 230 / 255.0;
  setWindowOpacity(kAlpha);
#endif
}

void BarlessDialog::paintEvent(QPaintEvent* event) {
  QDialog::paintEvent(event);
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

TitleBar::TitleBar(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Mid);
  setContentsMargins(kPicture + 2 * kGap, kGap, kGap, kGap);
  QFont bold = font();
  bold.setBold(true);
  setFont(bold);
}

void TitleBar::paintEvent(QPaintEvent* event) {
  QLabel::paintEvent(event);
  QPainter painter(this);
  window()->windowIcon().paint(&painter, {kGap, (height() - kPicture) / 2, kPicture, kPicture});
}

void TitleBar::mousePressEvent(QMouseEvent* event) {
  QWindow* const handle = window()->windowHandle();
  if (event->button() == Qt::LeftButton && handle != nullptr) handle->startSystemMove();
}

}  // namespace qublet

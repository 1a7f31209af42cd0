#include "settings/preferences/ui/swatch.h"

#include <QPainter>
#include <QPixmap>

#include "platform/qt/colours.h"

namespace qublet {
namespace {

constexpr QSize kPatch{28, 16};  // pixels at 100 %

QPixmap Patch(const QWidget& button, std::int32_t colour) {
  QPixmap patch(kPatch * button.devicePixelRatio());
  patch.setDevicePixelRatio(button.devicePixelRatio());
  patch.fill(button.palette().color(QPalette::Mid));
  QPainter(&patch).fillRect(QRect(QPoint(1, 1), kPatch - QSize(2, 2)), ColourFromSetting(colour));
  return patch;
}

}  // namespace

QIcon Swatch(const QWidget& button, std::int32_t background) {
  return QIcon(Patch(button, background));
}

QIcon Swatch(const QWidget& button, std::int32_t background, std::int32_t text) {
  QPixmap patch = Patch(button, background);
  QPainter painter(&patch);
  for (const int line : {4, 7, 10}) painter.fillRect(5, line, line == 7 ? 13 : 18, 2, ColourFromSetting(text));
  painter.end();
  return QIcon(patch);
}

QString ColourName(std::int32_t colour) {
  if (SystemColour(colour)) return QWidget::tr("System");
  return ColourFromSetting(colour).name().toUpper();
}

}  // namespace qublet

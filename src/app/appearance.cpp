#include "app/appearance.h"

#include <QFont>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScreen>

namespace qublet {

namespace {

// The font with each of its traits said, so that a widget takes none from its parent.
QFont OwnFont(QFont font) {
  font.setResolveMask(QFont::AllPropertiesResolved);
  return font;
}

}  // namespace

QColor ColourFromSetting(std::int32_t colour) {
  return {colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF};
}

void ApplyListLook(const AppSettings& settings, RowList& list) {
  QPalette palette = list.palette();
  const QColor back = ColourFromSetting(settings.BC);
  const QColor text = ColourFromSetting(settings.FC);
  palette.setColor(QPalette::Base, back);
  palette.setColor(QPalette::AlternateBase, back);
  palette.setColor(QPalette::Text, text);
  list.setPalette(palette);

  QFont font(QString::fromStdString(settings.Name), settings.Size);
  // Where there is no such font, the one of the menus is easier on the eyes than any other. Elsewhere than on Windows
  // the system finds the nearest itself.
  if (QGuiApplication::platformName() == QLatin1String("windows")) {
    font.setFamilies({font.family(), QGuiApplication::font().family()});
  }
  font.setItalic(settings.Italic);
  font.setBold(settings.Bold);
  font.setStrikeOut(settings.Strikethrough);
  font.setUnderline(settings.Underline);
  // First, so that the header isn't measured in the list's font.
  list.header()->setFont(OwnFont(QGuiApplication::font()));
  list.setFont(font);

  list.SetGridLines(settings.GRID);
  list.SetHotTracking(settings.HOTTRACK);

  for (std::size_t i = 0; i < settings.TV.size(); ++i) {
    const int column = static_cast<int>(i);
    list.setColumnHidden(column, !settings.TX[i] || settings.TV[i] <= 0);
    if (settings.TX[i] && settings.TV[i] > 0) list.setColumnWidth(column, settings.TV[i]);
  }
}

void ApplyPlace(const AppSettings& settings, QMainWindow& window) {
  window.resize(settings.W / kTwipsPerPixel, settings.H / kTwipsPerPixel);
  window.move(settings.L / kTwipsPerPixel, settings.T / kTwipsPerPixel);
}

namespace {

std::int32_t InTwips(int pixels, std::int16_t present) {
  return present / kTwipsPerPixel == pixels ? present : pixels * kTwipsPerPixel;
}

}  // namespace

WindowState StateOf(const QMainWindow& window, const RowList& list, const QToolBar& toolbar,
                    const QStatusBar& status_bar, const AppSettings& settings) {
  WindowState state;
  state.top = InTwips(window.y(), settings.T);
  state.left = InTwips(window.x(), settings.L);
  state.width = InTwips(window.width(), settings.W);
  state.height = InTwips(window.height(), settings.H);
  for (std::size_t i = 0; i < state.column_widths.size(); ++i) {
    state.column_widths[i] = list.columnWidth(static_cast<int>(i));
  }
  state.toolbar_shown = !toolbar.isHidden();
  state.status_bar_shown = !status_bar.isHidden();
  return state;
}

ScreenSize ScreenInTwips() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  const QSize size = screen != nullptr ? screen->size() : QSize(1024, 768);
  return {size.width() * kTwipsPerPixel, size.height() * kTwipsPerPixel};
}

}  // namespace qublet

#include "app/appearance.h"

#include <QFont>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScreen>
#include <algorithm>
#include <limits>

#include "platform/qt/colours.h"

namespace qublet {

namespace {

// The font with each of its traits said, so that a widget takes none from its parent.
QFont OwnFont(QFont font) {
  font.setResolveMask(QFont::AllPropertiesResolved);
  return font;
}

}  // namespace

void ApplyListLook(const AppSettings& settings, RowList& list) {
  QPalette palette;
  // The colours of the desktop follow it from light to dark.
  if (SystemColour(settings.BC) != QPalette::Base) palette.setColor(QPalette::Base, ColourFromSetting(settings.BC));
  if (SystemColour(settings.FC) != QPalette::Text) palette.setColor(QPalette::Text, ColourFromSetting(settings.FC));
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
  QFont header = QGuiApplication::font();
  header.setPointSizeF(font.pointSizeF());
  list.header()->setFont(OwnFont(header));
  list.setFont(font);

  list.SetGridLines(settings.GRID);
  list.SetHotTracking(settings.HOTTRACK);

  for (std::size_t i = 0; i < settings.TV.size(); ++i) {
    const int column = static_cast<int>(i);
    list.setColumnHidden(column, !settings.TX[i] || settings.TV[i] <= 0);
    if (settings.TX[i] && settings.TV[i] > 0) list.setColumnWidth(column, settings.TV[i]);
  }
}

void ApplyPlace(const AppSettings& settings, NormalPlace& place) {
  place.Set({settings.L / kTwipsPerPixel, settings.T / kTwipsPerPixel, settings.W / kTwipsPerPixel,
             settings.H / kTwipsPerPixel});
}

namespace {

// The record's own value where that is what led to these pixels.
std::int32_t InTwips(int pixels, std::int16_t present, int least = std::numeric_limits<int>::min()) {
  return std::max(present / kTwipsPerPixel, least) == pixels ? present : pixels * kTwipsPerPixel;
}

}  // namespace

WindowState StateOf(const QMainWindow& window, const NormalPlace& place, const RowList& list, const QToolBar& toolbar,
                    const QStatusBar& status_bar, const AppSettings& settings) {
  WindowState state;
  const QRect stands = place.Get();
  const QSize least = window.minimumSize();
  state.top = InTwips(stands.top(), settings.T);
  state.left = InTwips(stands.left(), settings.L);
  state.width = InTwips(stands.width(), settings.W, least.width());
  state.height = InTwips(stands.height(), settings.H, least.height());
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

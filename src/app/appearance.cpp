#include "app/appearance.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <limits>

#include "playlist/ui/list_look.h"

namespace qublet {

void ApplyListLook(const AppSettings& settings, RowList& list) {
  ApplyLook(LookOf(settings), list);
  list.SetHotTracking(settings.HOTTRACK);

  for (std::size_t i = 0; i < settings.TV.size(); ++i) {
    const int column = static_cast<int>(i);
    list.setColumnHidden(column, !settings.TX[i] || settings.TV[i] <= 0);
    if (settings.TX[i] && settings.TV[i] > 0) list.setColumnWidth(column, settings.TV[i]);
  }
}

RecordedPlace PlaceIn(const AppSettings& settings) {
  return {settings.T, settings.L, settings.W, settings.H};
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

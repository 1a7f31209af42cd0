#pragma once

#include <QMainWindow>
#include <QStatusBar>
#include <QToolBar>
#include <array>
#include <cstdint>

#include "desk/normal_place.h"
#include "playlist/ui/row_list.h"
#include "settings/window_state.h"

namespace qublet {

// Between the settings record and the look of the main window. Geometry in the record is in twips (1/1440 inch, 15 a
// pixel at 96 dpi); colours are told in platform/qt/colours.h.

inline constexpr int kTwipsPerPixel = 15;

// Look, hot tracking and column widths of the list.
void ApplyListLook(const AppSettings& settings, RowList& list);
// How the window stands, or will once it is no longer maximised, for the record. A value of the record that stands
// for the same pixel stays as it is, and so does a size below what the window needs that it has not been given
// another for.
WindowState StateOf(const QMainWindow& window, const NormalPlace& place, const RowList& list, const QToolBar& toolbar,
                    const QStatusBar& status_bar, const AppSettings& settings);
// Top, left, width and height of the record.
using RecordedPlace = std::array<std::int16_t, 4>;
RecordedPlace PlaceIn(const AppSettings& settings);
// Place and size of the window.
void ApplyPlace(const AppSettings& settings, NormalPlace& place);
// The whole screen in the record's units.
ScreenSize ScreenInTwips();

}  // namespace qublet

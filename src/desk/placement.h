#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QWidget>

namespace qublet {

// Where a new window goes so that it and the main window can both be seen, or on its middle when the main window
// leaves no room beside it. All in pixels of the desktop, frames included; `present` is where the new window would
// stand otherwise, and stays what it is sideways when there is room on neither side.
QPoint PlaceBeside(const QRect& main, QSize frm, const QRect& screen, QPoint present);

// Moves a window that isn't shown yet to that place.
void PositionForm(const QWidget& main, QWidget& frm);

// Makes a window larger by so much, as far as its screen has room, and moves it to where the screen has it whole.
void GrowOnScreen(QWidget& window, QSize more);

}  // namespace qublet

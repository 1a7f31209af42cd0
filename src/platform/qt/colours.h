#pragma once

#include <QColor>
#include <QPalette>
#include <cstdint>
#include <optional>

namespace qublet {

// How well two colours can be told apart: the ratio of their luminances, from 1 to 21.
double Contrast(const QColor& a, const QColor& b);
// `part` of a, the rest of b.
QColor Mixed(const QColor& a, const QColor& b, double part);
// `colour`, made lighter or darker only as far as it takes to have at least that contrast to `background`.
QColor Legible(const QColor& colour, const QColor& background, double contrast);

// Black or white, whichever stands out more.
QColor StrongestOn(const QColor& background);

// Colours as settings and files hold them: red in the low byte. With the highest bit set the number is one of the
// system's colours, and the low byte says which.
QColor ColourFromSetting(std::int32_t colour);
std::int32_t SettingFromColour(const QColor& colour);
// The palette's role that a system's colour stands for; nothing for other colours.
std::optional<QPalette::ColorRole> SystemColour(std::int32_t colour);

}  // namespace qublet

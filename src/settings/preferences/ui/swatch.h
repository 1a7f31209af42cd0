#pragma once

#include <QIcon>
#include <QString>
#include <QWidget>
#include <cstdint>

namespace qublet {

// Colours are as settings hold them.

// A patch of a colour for the face of a button, and with a second colour lines of text on it.
QIcon Swatch(const QWidget& button, std::int32_t background);
QIcon Swatch(const QWidget& button, std::int32_t background, std::int32_t text);
// What a colour is called: "#3A5300", or that it is one of the desktop's.
QString ColourName(std::int32_t colour);

}  // namespace qublet

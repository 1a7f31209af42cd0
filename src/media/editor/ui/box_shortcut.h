#pragma once

#include <QWidget>
#include <functional>

namespace qublet {

// Runs `handler` on a double click into a box, or on F4 while it has the keyboard. The box owns it; `tip` tells the
// user of it.
void OnDoubleClick(QWidget& box, const QString& tip, const std::function<void()>& handler);

// Lets only digits be typed into a box; keys that write nothing are as usual.
void TakeDigitsOnly(QWidget& box);

}  // namespace qublet

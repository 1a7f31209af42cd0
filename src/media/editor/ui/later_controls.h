#pragma once

#include <QWidget>
#include <initializer_list>

namespace qublet {

// Controls whose work isn't there yet can't be used and say so.
void DisableUntilLater(std::initializer_list<QWidget*> controls);

}  // namespace qublet

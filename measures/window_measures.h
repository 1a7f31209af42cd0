#pragma once

#include <vector>

#include "measure.h"

namespace qublet::measures {

// The commands in the window, full and of the size that it has at first. Needs a QApplication.
//   window_*         from the command to the picture, against the rules without a window and one plain repaint
//   repaint_after_*  the part of it that comes after the rules, against one plain repaint
std::vector<Measure> WindowMeasures();

}  // namespace qublet::measures

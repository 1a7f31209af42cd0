#pragma once

#include <vector>

#include "measure.h"

namespace qublet::measures {

// What the window has to do after a command on a full list, against painting the same rows once more. Needs a
// QApplication.
std::vector<Measure> RepaintMeasures();

}  // namespace qublet::measures

#pragma once

#include <vector>

#include "measure.h"

namespace qublet::measures {

// From the start of the program to the picture of its main window, and the memory that it takes then. The program is
// started with a home of its own. Needs a QApplication.
std::vector<Measure> StartMeasures();

}  // namespace qublet::measures

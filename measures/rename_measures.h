#pragma once

#include <vector>

#include "measure.h"

namespace qublet::measures {

// Renaming many files, taking that back, and the preview of it.
std::vector<Measure> RenameMeasures();

}  // namespace qublet::measures

#pragma once

#include <vector>

#include "measure.h"

namespace qublet::measures {

// Finding duplicates and missing items, and looking for what is missing.
std::vector<Measure> PurgeMeasures();

}  // namespace qublet::measures

#pragma once

#include <vector>

#include "measure.h"

namespace qublet::measures {

// The search of a full list.
std::vector<Measure> SearchMeasures();

}  // namespace qublet::measures

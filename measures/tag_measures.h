#pragma once

#include <vector>

#include "measure.h"

namespace qublet::measures {

// How fast tags are changed.
std::vector<Measure> TagMeasures();

}  // namespace qublet::measures

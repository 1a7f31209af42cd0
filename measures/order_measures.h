#pragma once

#include <vector>

#include "measure.h"

namespace qublet::measures {

// How fast a full list is put into order, selected and thinned out.
std::vector<Measure> OrderMeasures();

}  // namespace qublet::measures

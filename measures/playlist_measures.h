#pragma once

#include <vector>

#include "measure.h"

namespace qublet::measures {

// How fast files come into the list.
std::vector<Measure> PlaylistMeasures();

}  // namespace qublet::measures

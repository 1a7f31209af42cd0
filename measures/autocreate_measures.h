#pragma once

#include <vector>

#include "measure.h"

namespace qublet::measures {

// Playlists of many folders.
std::vector<Measure> AutoCreateMeasures();

}  // namespace qublet::measures

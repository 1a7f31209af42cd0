#pragma once

#include <vector>

#include "measure.h"

namespace qublet::measures {

// Reports of many files.
std::vector<Measure> ReportMeasures();

}  // namespace qublet::measures

#pragma once

#include <vector>

#include "measure.h"

namespace qublet::measures {

// What the guards cost that programs are built with: `qublet` beside this program against the one that
// $QUBLET_UNGUARDED names, which has been built without them.
std::vector<Measure> GuardMeasures();

}  // namespace qublet::measures

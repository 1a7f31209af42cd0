#pragma once

#include <vector>

#include "measure.h"

namespace qublet::measures {

// How fast files and playlists come into the list, and how fast a playlist is saved.
std::vector<Measure> PlaylistMeasures();

}  // namespace qublet::measures

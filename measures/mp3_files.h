#pragma once

#include <string>
#include <vector>

namespace qublet::measures {

// The contents of a few tens of small MP3 files as they stand in collections: MPEG 1, 2 and 2.5, layers II and III,
// constant and variable rate with and without a head that says so, and tags from none to one with a picture. Silence,
// written frame by frame; always the same.
std::vector<std::string> MakeMp3Files();

}  // namespace qublet::measures

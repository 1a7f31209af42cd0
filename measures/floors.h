#pragma once

#include <filesystem>

namespace qublet::measures {

// The least work and the usual way, to compare with. Each gives how many files it saw, so that the work can't be
// left out.

// Walks a folder, opens each file below, reads its first 4 KiB and closes it; one thread, bare system calls.
int ReadHeads(const std::filesystem::path& folder);

// Walks a folder and asks TagLib for the length and the rates of each file below; one thread.
int ReadByTagLib(const std::filesystem::path& folder);

}  // namespace qublet::measures

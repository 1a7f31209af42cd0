#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace qublet::measures {

// The least work and the usual way, to compare with. Each gives how many files it saw, so that the work can't be
// left out.

// Walks a folder, opens each file below, reads its first 4 KiB and closes it; one thread, bare system calls.
int ReadHeads(const std::filesystem::path& folder);

// Opens each of these files, reads its first 4 KiB and closes it.
int ReadHeads(const std::vector<std::string>& files);

// Asks the system for the attributes of each of these files, and counts those that aren't there; one thread.
int CountMissing(const std::vector<std::string>& files);

// Walks a folder and asks TagLib for the length and the rates of each file below; one thread.
int ReadByTagLib(const std::filesystem::path& folder);

// Writes bytes under a temporary name beside `path`, flushes them and renames the file.
void ReplaceFile(const std::string& path, const std::string& bytes);
std::string ReadWholeFile(const std::string& path);

}  // namespace qublet::measures

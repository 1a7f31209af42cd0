#pragma once

#include <cstdint>
#include <string>

#include "platform/file_system.h"

namespace qublet {

// Files that are read and written whole.

// Throws Failure, also for a file of more than `most` bytes.
std::string ContentOf(InputFile& file, std::int64_t most);

// By way of a replacement. Throws Failure.
void WriteWholeFile(const std::string& native, const std::string& content);
// The same for one of the program's own files.
void WriteWholeOwnFile(const std::string& native, const std::string& content);

}  // namespace qublet

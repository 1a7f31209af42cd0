#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "platform/file_system.h"

namespace qublet {

// When a file was last written, to be held against the time of another; nothing when it can't be reached.
std::optional<std::filesystem::file_time_type> LastWrite(const FileSystem& files, const std::string& path);

}  // namespace qublet

#pragma once

#include <string>
#include <string_view>

#include "platform/file_system.h"
#include "tools/rename/rename_config.h"

namespace qublet {

// The configuration as a file (.rps): one record of fixed length, integers little-endian, truth values -1 or 0 in 16
// bits, texts in the system's code page, a byte a character.
inline constexpr std::size_t kRenameRecordSize = 4264;

// "21" for the version 2.1.
std::string RenameVersion();

// A character without a place in the code page becomes "?". What the record lacks counts as zero.
std::string RenameRecord(const RenameConfig& config);
RenameConfig RenameConfigOf(std::string_view record);

// Sets `Version` and replaces the file; what a longer one holds behind the record stays there. On a failure the file
// is as it was.
Outcome WriteRenameSettings(const FileSystem& files, const std::string& path, RenameConfig& config);
// `config` becomes what was read also when it is of another version, which is a failure.
Outcome ReadRenameSettings(const FileSystem& files, const std::string& path, RenameConfig& config);

}  // namespace qublet

#pragma once

#include <string>
#include <string_view>

#include "platform/file_system.h"
#include "settings/schemes/look.h"

namespace qublet {

// A look as a file (.dps): one record of fixed length, see record_file.h.
inline constexpr std::size_t kLookRecordSize = 120;

// The size is rounded to whole points. Throws Failure for one beyond 16 bits.
std::string LookRecord(const Look& look);
// What the record lacks counts as zero, also all of it.
Look LookOfRecord(std::string_view record);

// Replaces the file but for what a longer one holds behind the record. On a failure the file is as it was.
Outcome WriteLook(const FileSystem& files, const std::string& path, const Look& look);
// Throws Failure when the file can't be read.
Look ReadLook(const FileSystem& files, const std::string& path);

}  // namespace qublet

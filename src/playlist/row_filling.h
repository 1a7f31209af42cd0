#pragma once

#include <string>

#include "media/media_info.h"
#include "platform/file_system.h"
#include "playlist/row_store.h"

namespace qublet {

// Reads the file at `path` and writes the cells of a new row. `original_order` is the number for "Original Order".
// Given up when a step failed (the length of a VBR file from 256 MiB on, or with a rate of 0); the row then holds
// what was written before it, and no more. The folder of a relative path is complete in the row even when the file is
// missing or damaged, so that the item can be saved as what it was. Safe to call from several threads.
Outcome ReadRow(const FileSystem& files, const std::string& path, int original_order,
                const std::string& thousands_separator, Row& row);

// Its two steps: what is known of a file, and the cells of that.
void ReadFacts(const FileSystem& files, const std::string& path, MediaInfo& info);
Outcome WriteRow(MediaInfo info, int original_order, const std::string& thousands_separator, Row& row);

}  // namespace qublet

#pragma once

#include <string>

#include "media/media_info.h"
#include "playlist/row_store.h"

namespace qublet {

// Writes the cells of a new row from what is known of its file. `original_order` is the number for "Original Order".
// False when a step failed (the length of a VBR file from 256 MiB on, or with a rate of 0); the row then holds what
// was written before it, and no more.
bool FillRow(MediaInfo info, int original_order, const std::string& thousands_separator, Row& row);

}  // namespace qublet

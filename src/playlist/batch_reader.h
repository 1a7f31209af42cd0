#pragma once

#include <string>
#include <vector>

#include "platform/feedback.h"
#include "platform/file_system.h"
#include "playlist/row_store.h"

namespace qublet {

// Reads the media facts of `paths` and makes a row of each, in their order; row i (from 0) gets the original order
// `first_order` + i. Files are read ahead by several threads, the last path first; meanwhile this thread shows the
// count of finished rows, at least every few hundredths of a second, so that the window stays painted.
std::vector<Row> ReadRows(const FileSystem& files, const std::vector<std::string>& paths, int first_order,
                          const std::string& thousands_separator, Feedback& feedback);

}  // namespace qublet

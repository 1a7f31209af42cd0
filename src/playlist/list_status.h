#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/file_system.h"
#include "playlist/row_store.h"

namespace qublet {

// What the window shows of the rows as a whole: the sums and the texts of the status bar's first three panels.
struct ListStatus {
  std::array<std::string, 3> panels;
  int selected = 0;
  std::int64_t total_length = 0;  // seconds
  std::int64_t total_size = 0;    // bytes
};

// One pass over the rows; an empty or unreadable cell counts as 0. With one selected row the disk is asked once
// whether the focused row's file is there.
ListStatus WorkOutStatus(const RowStore& rows, const FileSystem& files, const std::string& thousands_separator);

}  // namespace qublet

#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/file_system.h"
#include "playlist/row_store.h"
#include "settings/app_settings.h"

namespace qublet {

// What decides which commands can be used.
struct ListFacts {
  int rows = 0;
  int selected = 0;
  bool first_selected = false;
  bool last_selected = false;
  bool file_there = false;  // with exactly one selected row: whether its file is there
};

// What the window shows of the rows as a whole.
struct ListStatus {
  std::array<std::string, 3> panels;            // texts of the status bar's first three panels
  std::array<std::optional<bool>, 3> warnings;  // whether a panel bears the warning picture; nothing: as it was
  ListFacts facts;
};

// `ListView1_Click` worked out: one pass over the rows; an empty or unreadable cell counts as 0. With one selected
// row the disk is asked once whether its file is there; the focus doesn't matter.
ListStatus WorkOutStatus(const RowStore& rows, const FileSystem& files, const AppSettings& settings,
                         const std::string& thousands_separator);

// Each panel's warning: the count of rows, the size in bytes and the length in seconds against the limits that are
// switched on. A size limit of 2048 MB or more can't be worked out and gives nothing.
std::array<std::optional<bool>, 3> UpdateLimitWarnings(std::int64_t count, std::int64_t size, std::int64_t length,
                                                       const AppSettings& settings);

}  // namespace qublet

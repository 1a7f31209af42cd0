#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "playlist/row_store.h"
#include "settings/app_settings.h"

namespace qublet {

struct CommandState {
  const char* name;
  bool enabled;
};

// What the window shows of the rows as a whole.
struct ListStatus {
  std::array<std::string, 3> panels;            // texts of the status bar's first three panels
  std::array<std::optional<bool>, 3> warnings;  // whether a panel bears the warning picture; nothing: as it was
  std::vector<CommandState> commands;           // by the given names of the menu entries
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

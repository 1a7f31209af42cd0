#pragma once

#include <functional>
#include <string>

#include "generators/autocreate/autocreate_plan.h"

namespace qublet {

// Who hears how a run goes on.
struct AutoCreateWatch {
  std::function<void(const std::string& line)> report = [](const std::string&) {};
  std::function<void(int value, int maximum)> progress = [](int, int) {};
};

enum class AutoCreateEnd {
  kNothingRequested,  // there is no folder
  kDuplicates,        // two targets are the same; nothing was written
  kChecked,           // a dry run that found no duplicates
  kWritten,           // all that could be
};

struct AutoCreateResult {
  AutoCreateEnd end = AutoCreateEnd::kNothingRequested;
  AutoCreateMode mode = AutoCreateMode::kBaseFolderOnly;  // the one that was used
  Collection Written;                                     // the targets, in their order
  int failed = 0;                                         // how many couldn't be written
};

// Writes the playlists and reports each step. Where all files share no folder each folder gets its own playlist,
// unless MyFolder does. A target that is there already is replaced, and one that can't be written costs that one
// only. A dry run ends ahead of the first file.
AutoCreateResult CreatePlaylists(AutoCreateOrder order, const FileSystem& system, const Clock& clock,
                                 const AutoCreateWatch& watch, bool dry_run = false);

// Deletes what a run has written and reports it. True when all of it is gone by this.
bool UndoPlaylists(const Collection& Written, const FileSystem& system, const AutoCreateWatch& watch);

}  // namespace qublet

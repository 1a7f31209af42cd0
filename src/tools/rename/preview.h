#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "playlist/paths/collections.h"
#include "tools/rename/apply_rules.h"
#include "tools/rename/numbering.h"

namespace qublet {

// What a run over these files would do, without doing it.

enum class RenameFate {
  kUnknown,  // not worked out yet
  kRenamed,
  kUnchanged,
  kTaken,     // there is a file of the new name
  kSameName,  // a file of the run has got that name before
  kChain,     // the file of that name is renamed only later in the run
  kSwap,      // the same, and it wants this one's name
  kRefused,   // the system takes no such name, or none was worked out
  kMissing,
};

struct PreviewRow {
  std::string old_path;
  std::string new_path;
  RenameFate fate = RenameFate::kUnknown;
  std::size_t other = 0;   // the place, from 1, of the file that is in the way or has taken the name
  bool elsewhere = false;  // renamed, the file lies in another folder
  std::string reason;      // why it fails, fit to stand behind a path; "" unless it does
};

// Whether the file doesn't get its new name though it should.
bool Fails(const PreviewRow& row);
// "renamed", "same name as row 3", ...
std::string FateText(const PreviewRow& row);

using Stopped = std::function<bool()>;

// The new names, in the order of the files. Touches the disk only for tags, by `title`, and for numbers that count by
// folder. When stopped, the rest is missing. Never throws Failure.
std::vector<PreviewRow> PlanNames(const RenameRules& rules, const Collection& paths, Numbering& numbering,
                                  const TitleReader& title, const Stopped& stopped);
// Looks on the disk for what would become of each, one after the other. Never throws.
void WorkOutFates(const FileSystem& files, std::vector<PreviewRow>& rows, const Stopped& stopped);

}  // namespace qublet

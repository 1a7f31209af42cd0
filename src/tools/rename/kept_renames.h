#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "journal/run_records.h"
#include "tools/rename/rename_journal.h"

namespace qublet {

// The files that runs of renames are kept in: one record with the plan, then one for each thing that happened.
inline constexpr RunKind kRenameRuns{"QUBLET rename run", "rename-runs"};

enum class KeptState : std::uint32_t { kUnknown = 0, kRenamed = 1, kFailed = 2, kRestored = 3 };

struct KeptRename {
  std::string old_path;
  std::string new_path;
  FileIdentity identity;
  KeptState state = KeptState::kUnknown;
};

struct KeptRun {
  RunHead head;
  std::vector<KeptRename> renames;
  std::int64_t end = 0;  // where the next record is to stand
};

// With the identities that the files have now, as it stands in the file.
Bytes PlanRecord(const FileSystem& files, const std::vector<PlannedRename>& plan);
// `end` moves behind what was written. Throws Failure.
void AppendState(InPlaceFile& file, std::int64_t& end, std::size_t index, KeptState state);
// Throws Failure, also for a file that is no run or whose plan is damaged.
KeptRun ReadKeptRun(std::unique_ptr<InputFile> file);

// Whether that very file has that path. One that was missing when it was planned is nowhere.
bool IsAt(const FileSystem& files, const std::string& path, const FileIdentity& identity);

}  // namespace qublet

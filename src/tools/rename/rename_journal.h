#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/held_file.h"

namespace qublet {

// Runs that renamed files, kept in a folder of this user so that they can be undone. The plan of a run is on the disk
// before its first rename; what became of each file follows, and where that is missing the files' identities tell.

inline constexpr std::size_t kMostRenameRuns = 100;  // the oldest go first

struct PlannedRename {
  std::string old_path;
  std::string new_path;
};

// The record of one run while it goes on.
class RenameRunRecord {
 public:
  explicit RenameRunRecord(const FileSystem& files) : files_(files) {}

  // Writes and flushes the whole plan. Given up, the run can't be undone; the other functions do nothing then.
  Outcome Begin(const Clock& clock, const std::vector<PlannedRename>& plan);
  // What became of a rename of the plan. Never throws.
  void Note(std::size_t index, bool renamed);

 private:
  const FileSystem& files_;
  std::unique_ptr<HeldFile> lock_;
  std::unique_ptr<InPlaceFile> file_;
  std::int64_t size_ = 0;
};

struct RenameRunFacts {
  int number = 0;
  std::string time;  // "2026-11-22 03:19:43"
  int renamed = 0;   // files
};
// Every run that is kept, the newest first. Never throws.
std::vector<RenameRunFacts> RenameRuns(const FileSystem& files);
// The newest run of which something is left to undo.
std::optional<int> NewestRenameRun(const FileSystem& files);

struct RenameUndo {
  struct Left {
    std::string path;  // that the file had got
    std::string reason;
  };
  std::vector<PlannedRename> restored;
  std::vector<Left> left;
};

// Takes the renames of a run back, the last one first. Never replaces a file, and touches none but the ones that were
// renamed. What can't be taken back is left for another undo. Throws Failure when there is no such run.
RenameUndo UndoRenameRun(const FileSystem& files, int number);

}  // namespace qublet

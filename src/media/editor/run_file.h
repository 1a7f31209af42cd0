#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "journal/run_records.h"
#include "media/editor/tag_journal.h"

namespace qublet {

// The files that runs of tag changes are kept in: a record for each file that was to be changed, and where not all of
// them were, one without a path that tells how many.
inline constexpr RunKind kTagRuns{"QUBLET tag run", "tag-runs"};

// One changed file.
struct RunRecord {
  std::string path;
  std::int64_t before = 0;
  std::int64_t size = 0;  // of the whole file before
  Bytes old_head, old_tail;
  std::uint32_t new_head = 0, new_tail = 0;  // lengths
  std::uint64_t new_sum = 0;
};

Bytes RunRecordBytes(const TagWrite& write);
Bytes ClosingRecordBytes(std::size_t changed);

// A run's file, read. What a kill has cut off at its end counts as never written.
class RunReader {
 public:
  // Throws Failure, also for a file that is no run.
  explicit RunReader(std::unique_ptr<InputFile> file);

  const RunHead& Head() const { return records_.Head(); }
  // Records of files.
  std::size_t Count() const { return count_; }
  // Files that were changed, as far as it is known: all of them after a kill.
  std::size_t Changed() const { return changed_; }
  // Throws Failure for a damaged record.
  RunRecord At(std::size_t index) const;

 private:
  RunRecords records_;
  std::size_t count_;
  std::size_t changed_;
};

// Whether every file of a run is there and has the tags that it had before.
bool ChangedNothing(const FileSystem& files, const RunReader& run);

}  // namespace qublet

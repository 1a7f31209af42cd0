#include <set>

#include "media/editor/run_file.h"
#include "media/editor/tag_journal.h"

namespace qublet {
namespace {

enum class State { kAsWritten, kAsBefore, kOther };

State StateOf(InputFile& file, const RunRecord& record) {
  const auto old_head = static_cast<std::int64_t>(record.old_head.size());
  const auto old_tail = static_cast<std::int64_t>(record.old_tail.size());
  const std::int64_t written = record.size - old_head - old_tail + record.new_head + record.new_tail;
  if (file.Size() == written) {
    const Bytes head = ReadBytes(file, record.before, record.new_head);
    const Bytes tail = ReadBytes(file, written - record.new_tail, record.new_tail);
    if (SumOf(tail, SumOf(head)) == record.new_sum) return State::kAsWritten;
  }
  const bool before = file.Size() == record.size && ReadBytes(file, record.before, old_head) == record.old_head &&
                      ReadBytes(file, record.size - old_tail, old_tail) == record.old_tail;
  return before ? State::kAsBefore : State::kOther;
}

// What an undo has come to by now.
class Undo {
 public:
  explicit Undo(const FileSystem& files) : files_(files) {}

  // Records are taken from the last to the first: a file may have been changed more than once in a run.
  void Take(const RunRecord& record) {
    const Outcome outcome = Attempt([&] {
      const auto file = files_.OpenForReading(record.path);
      switch (StateOf(*file, record)) {
        case State::kAsWritten:
          ReplaceEnds(files_, record.path, *file,
                      {record.before, record.new_head, record.old_head, record.new_tail, record.old_tail});
          restored_.insert(record.path);
          break;
        case State::kOther:
          if (!restored_.contains(record.path)) result_.left.push_back({record.path, "its tags have changed since"});
          break;
        case State::kAsBefore:  // the run was stopped in front of it, or another undo has been here
          break;
      }
    });
    if (outcome) return;
    Fail(record.path, outcome.Reason());
    if (files_.Attributes(record.path)) can_follow_ = true;
  }
  void Fail(const std::string& path, const std::string& reason) {
    result_.left.push_back({path, reason});
    failed_ = true;
  }

  // A file that has gone is waited for only where nothing else could be restored.
  bool Counts() const { return !can_follow_ && (!restored_.empty() || !failed_); }
  TagUndo Result() {
    result_.restored.assign(restored_.begin(), restored_.end());
    return result_;
  }

 private:
  const FileSystem& files_;
  std::set<std::string> restored_;
  TagUndo result_;
  bool failed_ = false;
  bool can_follow_ = false;  // a file that is there could be restored another time
};

}  // namespace

bool ChangedNothing(const FileSystem& files, const RunReader& run) {
  bool nothing = true;
  for (std::size_t i = 0; i < run.Count() && nothing; ++i) {
    nothing = Guarded([&] {
      const RunRecord record = run.At(i);
      if (StateOf(*files.OpenForReading(record.path), record) != State::kAsBefore) throw Failure("has changed");
    });
  }
  return nothing;
}

TagUndo UndoTagRun(const FileSystem& files, int number) {
  const std::string folder = RunFolder(files, kTagRuns);
  const RunFile run = FindRun(files, folder, number);
  const std::unique_ptr<HeldFile> lock = HoldRun(files, run.path);
  Undo undo(files);
  {
    const RunReader reader(files.OwnFiles().OpenForReading(run.path));
    const auto batch = files.BeginBatch();
    for (std::size_t i = reader.Count(); i-- > 0;) {
      const Outcome read = Attempt([&] { undo.Take(reader.At(i)); });
      if (!read) undo.Fail(run.path, read.Reason());
    }
  }
  if (undo.Counts() && !run.undone) files.Rename(run.path, folder + RunFileName(number, true));
  return undo.Result();
}

}  // namespace qublet

#include "tools/rename/rename_journal.h"

#include <algorithm>

#include "tools/rename/kept_renames.h"

namespace qublet {
namespace {

void DeleteOldest(const FileSystem& files, std::vector<RunFile>& runs) {
  while (runs.size() >= kMostRenameRuns) {
    ResumeNext([&] { files.DeleteFile(runs.front().path); });
    runs.erase(runs.begin());
  }
}

// Whether there was a rename that nothing has taken back yet. Files are asked only where the journal doesn't know.
bool IsDone(const FileSystem& files, const KeptRename& rename) {
  if (rename.state == KeptState::kUnknown) return IsAt(files, rename.new_path, rename.identity);
  return rename.state == KeptState::kRenamed;
}

std::string WhyNot(const FileSystem& files, const KeptRename& rename) {
  return files.Attributes(rename.new_path) ? "it isn't the file that was renamed" : "no such file or folder";
}

class Undo {
 public:
  Undo(const FileSystem& files, const RunFile& run, const KeptRun& kept) : files_(files), size_(kept.end) {
    ResumeNext([&] { file_ = files.OwnFiles().OpenInPlace(run.path); });
  }

  void Take(std::size_t index, const KeptRename& rename) {
    const bool missing_then = rename.identity.number == 0;
    if (missing_then || rename.state == KeptState::kFailed || rename.state == KeptState::kRestored) return;
    if (!IsAt(files_, rename.new_path, rename.identity)) {
      // Stopped in front of it, or taken back by other hands.
      if (!IsAt(files_, rename.old_path, rename.identity))
        result.left.push_back({rename.new_path, WhyNot(files_, rename)});
      return;
    }
    const Outcome renamed = Attempt([&] { files_.Rename(rename.new_path, rename.old_path); });
    if (!renamed) return result.left.push_back({rename.new_path, renamed.Reason()});
    result.restored.push_back({rename.new_path, rename.old_path});
    if (file_) ResumeNext([&] { AppendState(*file_, size_, index, KeptState::kRestored); });
  }

  RenameUndo result;

 private:
  const FileSystem& files_;
  std::unique_ptr<InPlaceFile> file_;
  std::int64_t size_;
};

}  // namespace

Outcome RenameRunRecord::Begin(const Clock& clock, const std::vector<PlannedRename>& plan) {
  std::string path;
  const Outcome begun = Attempt([&] {
    const std::string folder = RunFolder(files_, kRenameRuns);
    std::vector<RunFile> runs = RunFiles(files_, folder);
    const Bytes record = PlanRecord(files_, plan);
    NewRun run = BeginRun(files_, kRenameRuns, folder, runs, {RunTime(clock.Now()), "qublet"});
    path = run.path;
    lock_ = std::move(run.lock);
    file_ = std::move(run.file);
    file_->WriteAt(run.size, record);
    size_ = run.size + static_cast<std::int64_t>(record.size());
    file_->Flush();
    DeleteOldest(files_, runs);
  });
  if (!begun) {
    file_.reset();
    lock_.reset();
    if (!path.empty()) ResumeNext([&] { files_.DeleteFile(path); });
  }
  return begun;
}

void RenameRunRecord::Note(std::size_t index, bool renamed) {
  if (!file_) return;
  ResumeNext([&] { AppendState(*file_, size_, index, renamed ? KeptState::kRenamed : KeptState::kFailed); });
}

std::vector<RenameRunFacts> RenameRuns(const FileSystem& files) {
  std::vector<RenameRunFacts> facts;
  ResumeNext([&] {
    for (const RunFile& run : RunFiles(files, RunFolder(files, kRenameRuns))) {
      ResumeNext([&] {
        const KeptRun kept = ReadKeptRun(files.OwnFiles().OpenForReading(run.path));
        const auto renamed = std::ranges::count_if(kept.renames, [&](const KeptRename& rename) {
          return rename.state == KeptState::kRestored || IsDone(files, rename);
        });
        facts.insert(facts.begin(), {run.number, kept.head.time, static_cast<int>(renamed)});
      });
    }
  });
  return facts;
}

std::optional<int> NewestRenameRun(const FileSystem& files) {
  std::vector<RunFile> runs;
  ResumeNext([&] { runs = RunFiles(files, RunFolder(files, kRenameRuns)); });
  for (auto run = runs.rbegin(); run != runs.rend(); ++run) {
    bool something = false;
    ResumeNext([&] {
      const KeptRun kept = ReadKeptRun(files.OwnFiles().OpenForReading(run->path));
      something = !run->undone &&
                  std::ranges::any_of(kept.renames, [&](const KeptRename& rename) { return IsDone(files, rename); });
    });
    if (something) return run->number;
  }
  return std::nullopt;
}

RenameUndo UndoRenameRun(const FileSystem& files, int number) {
  const std::string folder = RunFolder(files, kRenameRuns);
  const RunFile run = FindRun(files, folder, number);
  const std::unique_ptr<HeldFile> lock = HoldRun(files, run.path);
  RenameUndo result;
  {
    const KeptRun kept = ReadKeptRun(files.OwnFiles().OpenForReading(run.path));
    Undo undo(files, run, kept);
    for (std::size_t i = kept.renames.size(); i-- > 0;) undo.Take(i, kept.renames[i]);
    result = std::move(undo.result);
  }
  if (result.left.empty() && !run.undone)
    ResumeNext([&] { files.Rename(run.path, folder + RunFileName(number, true)); });
  return result;
}

}  // namespace qublet

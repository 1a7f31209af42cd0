#include "media/editor/tag_journal.h"

#include "media/editor/run_file.h"

namespace qublet {

void TagRunRecord::Begin() {
  const std::string folder = RunFolder(files_, kTagRuns);
  const std::vector<RunFile> runs = RunFiles(files_, folder);
  for (auto run = runs.rbegin(); run != runs.rend(); ++run) {
    older_.push_back({run->path, files_.FileLength(run->path)});
    older_size_ += older_.back().size;
  }
  NewRun run = BeginRun(files_, kTagRuns, folder, runs, {RunTime(clock_.Now()), origin_});
  path_ = run.path;
  lock_ = std::move(run.lock);
  file_ = std::move(run.file);
  size_ = run.size;
  waiting_ = true;
}

void TagRunRecord::MakeRoom(std::int64_t more) {
  if (size_ + more > most_) throw Failure("the run is too large to be kept");
  while (!older_.empty() && older_size_ + size_ + more > most_) {
    files_.DeleteFile(older_.back().path);
    older_size_ -= older_.back().size;
    older_.pop_back();
  }
}

void TagRunRecord::Append(const Bytes& bytes) {
  MakeRoom(static_cast<std::int64_t>(bytes.size()));
  file_->WriteAt(size_, bytes);
  size_ += static_cast<std::int64_t>(bytes.size());
  waiting_ = true;
}

void TagRunRecord::Lose(const std::string& why) {
  lost_ = why;
  const bool made = file_ != nullptr;
  file_.reset();
  if (made) ResumeNext([&] { files_.DeleteFile(path_); });
}

void TagRunRecord::Note(const TagWrite& write) {
  if (!lost_.empty() || write.ChangesNothing()) return;
  const Outcome noted = Attempt([&] {
    if (!file_) Begin();
    MakeRoom(static_cast<std::int64_t>(write.old_head.size() + write.old_tail.size()));
    Append(RunRecordBytes(write));
    ++noted_;
  });
  if (!noted) Lose(noted.Reason());
}

void TagRunRecord::Flush() {
  if (!file_ || !waiting_) return;
  const Outcome flushed = Attempt([&] { file_->Flush(); });
  waiting_ = false;
  if (!flushed) Lose(flushed.Reason());
}

void TagRunRecord::End() {
  lock_.reset();
  if (!file_ || changed_ == noted_) return;
  if (changed_ > 0) return ResumeNext([&] { Append(ClosingRecordBytes(changed_)); });
  // A change may have been made and failed only afterwards.
  file_.reset();
  ResumeNext([&] {
    if (ChangedNothing(files_, RunReader(files_.OwnFiles().OpenForReading(path_)))) files_.DeleteFile(path_);
  });
}

std::vector<TagRunFacts> TagRuns(const FileSystem& files) {
  std::vector<TagRunFacts> facts;
  ResumeNext([&] {
    for (const RunFile& run : RunFiles(files, RunFolder(files, kTagRuns))) {
      ResumeNext([&] {
        const RunReader reader(files.OwnFiles().OpenForReading(run.path));
        facts.insert(facts.begin(), {run.number, reader.Head().time, static_cast<int>(reader.Changed()),
                                     reader.Head().origin, run.undone});
      });
    }
  });
  return facts;
}

// Looks into no more runs than it must: it is asked at every file that the editor shows.
std::optional<int> NewestTagRun(const FileSystem& files, const std::string& origin) {
  std::vector<RunFile> runs;
  ResumeNext([&] { runs = RunFiles(files, RunFolder(files, kTagRuns)); });
  for (auto run = runs.rbegin(); run != runs.rend(); ++run) {
    if (run->undone) continue;
    bool wanted = false;
    ResumeNext([&] {
      const RunHead head = ReadRunHead(kTagRuns, *files.OwnFiles().OpenForReading(run->path));
      wanted = origin.empty() || head.origin == origin;
    });
    if (wanted) return run->number;
  }
  return std::nullopt;
}

}  // namespace qublet

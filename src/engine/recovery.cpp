#include "engine/recovery.h"

#include <functional>
#include <utility>

#include "playlist/row_paths.h"

namespace qublet {

Recovery::Recovery(Document& document, const FileSystem& files, std::string folder)
    : document_(document), files_(files), folder_(std::move(folder)) {}

Recovery::~Recovery() {
  Finish();
}

void Recovery::Tick(Time now) {
  if (folder_.empty()) return;
  if (job_.done.valid() && job_.done.wait_for(std::chrono::seconds(0)) != std::future_status::ready) return;
  Finish();
  const std::uint64_t changes = document_.ListView1.Changes();
  if (!document_.StoredNowhere()) {
    kept_.reset();
    waiting_since_.reset();
    if (written_) Begin(std::nullopt);
    return;
  }
  if (kept_ == changes) {
    waiting_since_.reset();
    return;
  }
  if (std::exchange(seen_, changes) != changes) seen_first_ = now;
  if (!waiting_since_) waiting_since_ = now;
  const bool at_rest = now - seen_first_ >= kAfterLastChange;
  const bool long_since = now - *waiting_since_ >= kAtLeastEvery;
  // What has just failed isn't tried every second.
  if (long_since || (at_rest && !failed_)) Begin(changes);
}

void Recovery::Begin(std::optional<std::uint64_t> writes) {
  waiting_since_.reset();
  ResumeNext([&] {
    std::function<bool()> work = [this] { return Delete(); };
    if (writes) work = [this, paths = PathsOf(document_.ListView1, WhichRows::kAll)] { return Write(paths); };
    job_ = {std::async(std::launch::async, std::move(work)), writes};
  });
}

void Recovery::Finish() {
  if (job_.done.valid()) {
    failed_ = !job_.done.get();
    if (!failed_) kept_ = job_.writes;
  }
  if (document_.Recovered == Document::Recovery::kLeft) LetGo();
}

// Nobody owns the list from now on; another file begins with the next one.
void Recovery::LetGo() {
  file_.reset();
  written_ = false;
  kept_.reset();
  document_.Recovered = Document::Recovery::kNone;
}

bool Recovery::Write(const Collection& paths) {
  return Guarded([&] {
    if (!file_) file_ = RecoveryFile::Begin(files_, folder_);
    file_->Write(paths).OrThrow();
    written_ = true;
  });
}

bool Recovery::Delete() {
  return Guarded([&] {
    if (written_) file_->Delete();
    written_ = false;
  });
}

void Recovery::Settle() {
  Finish();
  const std::uint64_t changes = document_.ListView1.Changes();
  if (!document_.StoredNowhere()) {
    kept_.reset();
    Delete();
  } else if (kept_ != changes && Write(PathsOf(document_.ListView1, WhichRows::kAll))) {
    kept_ = changes;
  }
}

void Recovery::Drop() {
  Finish();
  Delete();
  kept_ = document_.ListView1.Changes();
}

bool Recovery::Restore(const std::string& path, Items& items) {
  std::unique_ptr<RecoveryFile> file;
  ResumeNext([&] { file = RecoveryFile::TakeOver(files_, path); });
  if (!file || !items.AddOwnPlaylist(path)) return false;
  file_ = std::move(file);
  written_ = true;
  document_.Recovered = Document::Recovery::kHere;
  kept_ = document_.ListView1.Changes();
  return true;
}

}  // namespace qublet

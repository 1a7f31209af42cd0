#include "platform/linux/folder_flushes.h"

#include <unistd.h>

namespace qublet {
namespace {

bool SameFolder(const Descriptor& one, const Descriptor& other) {
  struct stat a {};
  struct stat b {};
  return fstat(one.Get(), &a) == 0 && fstat(other.Get(), &b) == 0 && a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

}  // namespace

class FolderFlushes::Batch : public ReplacementBatch {
 public:
  explicit Batch(FolderFlushes& flushes) : flushes_(flushes) {}
  ~Batch() override { flushes_.EndBatch(); }

 private:
  FolderFlushes& flushes_;
};

std::unique_ptr<ReplacementBatch> FolderFlushes::BeginBatch() {
  const std::lock_guard lock(mutex_);
  ++batches_;
  return std::make_unique<Batch>(*this);
}

void FolderFlushes::Flush(Descriptor folder) {
  const std::lock_guard lock(mutex_);
  if (batches_ > 0) std::swap(folder, waiting_);
  const bool goes_on = batches_ > 0 && folder.IsOpen() && SameFolder(folder, waiting_);
  if (folder.IsOpen() && !goes_on) fsync(folder.Get());
}

void FolderFlushes::EndBatch() {
  const std::lock_guard lock(mutex_);
  if (--batches_ > 0 || !waiting_.IsOpen()) return;
  fsync(waiting_.Get());
  waiting_ = Descriptor();
}

}  // namespace qublet

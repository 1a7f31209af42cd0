#pragma once

#include <memory>
#include <mutex>

#include "platform/file_system.h"
#include "platform/linux/descriptor.h"

namespace qublet {

// The flush of a folder after one of its files was replaced: at once, or once for all the files of a folder while a
// batch lives. Safe to use from several threads.
class FolderFlushes {
 public:
  // A folder that can't be flushed is no failure: the new version of its file stands already.
  void Flush(Descriptor folder);
  // Lives no longer than this.
  std::unique_ptr<ReplacementBatch> BeginBatch();

 private:
  class Batch;
  void EndBatch();

  std::mutex mutex_;
  int batches_ = 0;
  Descriptor waiting_;  // the folder of the last file, to be flushed yet
};

}  // namespace qublet
